#include "builder/downloads/MDownloadSetSources.h"

#include "builder/checks/MFileNameRules.h"
#include "builder/definition/MSortedFileList.h"
#include "foundation/base/MAddSize.h"
#include "foundation/text/MUnicode.h"
#include "foundation/xml/MXMLItem.h"
#include "payload/MDownloadNames.h"
#include "streams/basic/MMemoryStream.h"

#include <map>
#include <string>

namespace {

/// A blank in front of a text is lost in XML, and so may be characters that no codec is made for.
bool SurvivesInIndex(const MString& name) {
    MXMLItem item("File");
    item.SetValue(name);
    MMemoryStream document;
    item.Save(document, true, "utf-8");
    document.Rewind();
    item.Load(document);
    return item.GetValue().IsExactly(name);
}

MString FindNameFault(const MString& name) {
    if (const MString fault = MFileNameRules::FindFault(name); !fault.IsEmpty()) return fault;
    if (!SurvivesInIndex(name))
        return "begins with a blank, or with something else that an index cannot hold";
    const MList<MString> components = name.Split('/');
    if (MDownloadNames::IsTaken(components[0]))
        return "begins as that of the file in which the downloader keeps what it has done, or is short for "
               "it";
    if (name.GetLength() > MDownloadNames::MaximumLength ||
        components.GetCount() > MDownloadNames::MaximumDepth)
        return "is too long or too deep for the downloader, which takes 4,000 characters and 250 directories";
    return MString();
}

class Collector {
public:
    Collector(MDownloadSetSources& sources, MList<MString>& problems)
        : sources(sources), problems(problems) {}

    void CollectDirectory(const MString& path, const MString& name) {
        std::map<std::string, MString> folded;
        for (const MFileListEntry& entry : ListDirectory(path)) {
            const MString entryName = MFile::Join(name, entry.name);
            CheckName(entryName);
            const auto [other, isNew] =
                folded.try_emplace(MEncodeUTF8Exact(MFileNameRules::FoldCase(entry.name)), entryName);
            if (!isNew)
                AddProblem("\"{0}\" and \"{1}\" differ in case only. Rename one of them.", other->second,
                           entryName);
            CollectEntry(MFile::Join(path, entry.name), entryName);
        }
    }

private:
    MList<MFileListEntry> ListDirectory(const MString& path) {
        try {
            return MGetSortedFileList(path);
        } catch (const MException& exception) {
            AddProblem("A directory cannot be read: {0} Make it readable.", exception.GetMessage());
            return {};
        }
    }

    void CheckName(const MString& name) {
        if (const MString fault = FindNameFault(name); !fault.IsEmpty())
            AddProblem("The name \"{0}\" {1}. Rename it.", name, fault);
    }

    void CollectEntry(const MString& path, const MString& name) {
        if (!MFile::IsDirectory(path)) return CollectFile(path, name);
        if (MFile::IsLink(path))
            return AddProblem(
                "\"{0}\" is a link to a directory. Put the directory itself there, or delete the link.",
                path);
        sources.directories.Add(name);
        CollectDirectory(path, name);
    }

    void CollectFile(const MString& path, const MString& name) {
        if (MFile::IsDevice(path)) return AddProblem("\"{0}\" is no file. Remove it.", path);
        try {
            const int64_t size = MFile::GetFileSize(path);
            sources.files.Add({name, path, size});
            MAddSize(sources.size, size);
        } catch (const MException& exception) {
            AddProblem("A file cannot be read: {0} Make it readable.", exception.GetMessage());
        }
    }

    template <class... Values>
    void AddProblem(const char* text, const Values&... values) {
        problems.Add(MFormat(text, values...));
    }

    MDownloadSetSources& sources;
    MList<MString>& problems;
};

}  // namespace

int64_t MDownloadSetSources::CountParts(int64_t partSize) const {
    int64_t count = 0;
    for (const File& file : files) count += file.size / partSize + (file.size % partSize > 0);
    return count;
}

MDownloadSetSources MCollectDownloadSetSources(const MString& directory, MList<MString>& problems) {
    MDownloadSetSources sources;
    if (directory.IsEmpty() || !MFile::IsDirectory(directory)) {
        problems.Add(MFormat("\"{0}\" is no directory. Name the one that holds the files.", directory));
        return sources;
    }
    const int32_t knownProblems = problems.GetCount();
    Collector(sources, problems).CollectDirectory(directory, MString());
    if (sources.files.IsEmpty() && problems.GetCount() == knownProblems)
        problems.Add(MFormat("\"{0}\" holds no files. Put there what users are to download.", directory));
    return sources;
}
