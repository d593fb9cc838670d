#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"

#include <algorithm>

namespace {

/// A path with mixed separators is cut at the last backslash, wherever its slashes stand.
int32_t FindLastSeparator(const MString& path) {
    const int32_t backslash = path.FindCharBackward('\\');
    return backslash != MString::NotFound ? backslash : path.FindCharBackward('/');
}

int32_t FindExtensionDot(const MString& path) {
    const int32_t dot = path.FindCharBackward('.');
    return dot > FindLastSeparator(path) ? dot : MString::NotFound;
}

bool EndsInSlash(const MString& path) {
    return !path.IsEmpty() && path[path.GetLength() - 1] == u'/';
}

/// Drops the last component of a directory that ends in a slash; a drive and the root directory have none to
/// drop.
void DropLastComponent(MString& directory) {
    int32_t start = directory.GetLength() - 1;
    if (start <= 0 || directory[start - 1] == u':') return;
    while (start > 0 && directory[start - 1] != u'/') --start;
    directory.Cut(start);
}

/// A relative path's way: ".." takes back the component before it, which may be another "..".
void AddComponent(MList<MString>& way, const MString& component) {
    const int32_t last = way.GetCount() - 1;
    if (last < 0 || !component.IsExactly(".."))
        way.Add(component);
    else if (!way[last].EndsWith(":"))
        way.Remove(last);
}

}  // namespace

bool MFile::IsAbsolute(const MString& path) {
    return (path.GetLength() > 1 && path[1] == u':') || (path[0] == u'/' && MPlatform::HasRootDirectory());
}

MString MFile::Normalize(const MString& path) {
    if (path.IsEmpty()) return path;
    MString result = IsAbsolute(path) ? path : GetCurrentPath() + "/" + path;
    for (int32_t i = 0; i < result.GetLength(); ++i)
        if (result[i] == u'\\') result.SetChar(i, u'/');
    const bool isRoot = result.GetLength() == 1 && MPlatform::HasRootDirectory();
    if (EndsInSlash(result) && !isRoot) result.Cut(result.GetLength() - 1);
    return result;
}

MString MFile::Join(const MString& base, const MString& name) {
    if (base.IsEmpty()) return name;
    if (name.IsEmpty()) return base;
    MString result = EndsInSlash(base) ? base : base + "/";
    int32_t start = name[0] == u'/' ? 1 : 0;
    const auto isAt = [&name](int32_t index, char16_t unit) {
        return index < name.GetLength() && name[index] == unit;
    };
    while (isAt(start, u'.')) {
        if (isAt(start + 1, u'/')) {
            start += 2;
        } else if (isAt(start + 1, u'.') && (isAt(start + 2, u'/') || start + 2 == name.GetLength())) {
            start += 3;
            DropLastComponent(result);
        } else {
            break;
        }
    }
    result.Append(name.Substring(start));
    if (EndsInSlash(result) && result.GetLength() > 1) result.Cut(result.GetLength() - 1);
    return result;
}

MString MFile::GetDirectory(const MString& path) {
    const int32_t separator = FindLastSeparator(path);
    if (separator == 0 && path[0] == u'/' && MPlatform::HasRootDirectory()) return "/";
    return path.Substring(0, std::max(separator, 0));
}

MString MFile::GetFileName(const MString& path) {
    return path.Substring(FindLastSeparator(path) + 1);
}

MString MFile::GetBaseName(const MString& path) {
    const MString name = GetFileName(path);
    const int32_t dot = name.FindCharBackward('.');
    return dot == MString::NotFound ? name : name.Substring(0, dot);
}

MString MFile::GetExtension(const MString& path) {
    const int32_t dot = FindExtensionDot(path);
    return dot == MString::NotFound ? MString() : path.Substring(dot + 1);
}

MString MFile::ChangeExtension(const MString& path, const MString& extension) {
    const int32_t dot = FindExtensionDot(path);
    return (dot == MString::NotFound ? path : path.Substring(0, dot)) + "." + extension;
}

MString MFile::GetRelativePath(const MString& from, const MString& to) {
    const MList<MString> source = from.Split('/');
    const MList<MString> target = to.Split('/');
    int32_t common = 0;
    while (common < source.GetCount() && common < target.GetCount() && source[common] == target[common])
        ++common;

    MList<MString> way;
    for (int32_t i = common; i < target.GetCount(); ++i) way.Add("..");
    for (int32_t i = common; i < source.GetCount(); ++i) AddComponent(way, source[i]);
    MString result;
    for (const MString& component : way) {
        if (!result.IsEmpty()) result.Append("/");
        result.Append(component);
    }
    return result;
}
