#include "ui/text/MSystemFontCache.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLItem.h"

namespace {

constexpr const char* RootName = "MSystemFontCache";

bool IsAllowed(MChar character) {
    return character >= 128 || character.IsAlphanumeric() || character == '-' || character == '_';
}

/// A file that is missing or damaged leaves the item as far as it was read.
void Load(MXMLItem& root, const MString& path) {
    if (!MFile::IsFile(path)) return;
    MGuard("GetSystemFontDescriptor load cache", [&] { root.LoadFile(path); });
}

}  // namespace

MString MSystemFontCache::GetKey(const MString& family, bool isBold, bool isItalic) {
    MString key;
    for (int32_t i = 0; i < family.GetLength(); ++i)
        if (IsAllowed(family[i])) key.Append(family[i]);
    return key + (isBold ? "B" : "0") + (isItalic ? "I" : "0");
}

MString MSystemFontCache::Find(const MString& key) const {
    MXMLItem root;
    Load(root, path);
    return root.GetAttribute(key, MString());
}

void MSystemFontCache::Add(const MString& key, const MString& fontPath) const {
    MGuard("GetSystemFontDescriptor save cache", [&] {
        MXMLItem root;
        Load(root, path);
        root.SetName(RootName);
        root.SetAttribute(key, fontPath);
        root.SaveFile(path, false, "utf-8");
    });
}

void MSystemFontCache::Delete() const {
    if (MFile::IsFile(path)) MFile::Delete(path);
}
