#include "builder/downloads/MDownloadSetWriter.h"

#include "builder/packing/MHashingStream.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"

#include <algorithm>

namespace {

constexpr int32_t AreaSize = 0x100000;

[[noreturn]] void RaiseChanged(const MString& path) {
    MRaise(MExceptionGeneral,
           "\"{0}\" changed while it was being read. Run the command again when nothing writes to it.", path);
}

}  // namespace

MDownloadSetWriter::MDownloadSetWriter(const MString& directory, int64_t partSize, Progress progress)
    : directory(directory),
      partSize(partSize),
      progress(std::move(progress)),
      index("index"),
      area(AreaSize) {}

void MDownloadSetWriter::Write(const MDownloadSetSources& sources) {
    for (const MString& name : sources.directories) index.AddSubItem("Directory")->SetValue(name);
    for (const MDownloadSetSources::File& file : sources.files) AddFile(file);
    WriteIndex();
}

void MDownloadSetWriter::AddFile(const MDownloadSetSources::File& file) {
    MStdFileStream content;
    content.Open(file.path, MOpenRead);
    MXMLItem& item = *index.AddSubItem("File");
    item.SetValue(file.name);
    item.SetAttribute("ID", ++fileCount);
    MMD5Stream hash;
    for (int64_t start = 0; start < file.size; start += partSize)
        AddPart(item, content, std::min(partSize, file.size - start), hash);
    if (content.Read(area.Edit(), 1) != 0) RaiseChanged(file.path);
    hash.Finish();
    item.SetAttribute("md5", hash.GetDigestText());
    size += file.size;
}

void MDownloadSetWriter::AddPart(MXMLItem& item, MStdFileStream& file, int64_t count, MMD5Stream& hash) {
    const MString number = MNumberToText(item.GetSubItemCount() + 1);
    MStdFileStream part;
    part.Open(MFile::Join(directory, item.GetAttribute("ID") + "." + number + ".zip"),
              MOpenWrite | MOpenCreate);
    MHashingStream hashing(&part);
    for (int64_t left = count; left > 0;) {
        const auto wanted = static_cast<int32_t>(std::min<int64_t>(left, AreaSize));
        if (file.Read(area.Edit(), wanted) != wanted) RaiseChanged(file.GetFileName());
        hashing.Write(area.Get(), wanted);
        hash.Write(area.Get(), wanted);
        left -= wanted;
        if (progress) progress(wanted);
    }
    MXMLItem& element = *item.AddSubItem("Part");
    element.SetValue(number);
    element.SetAttribute("md5", hashing.GetDigestText());
    part.Close();
    MSyncFile(part.GetFileName());
    ++partCount;
}

void MDownloadSetWriter::WriteIndex() {
    index.SetAttribute("Size", size);
    MStdFileStream file;
    file.Open(MFile::Join(directory, "INDEX.ZIP"), MOpenWrite | MOpenCreate);
    index.SaveCompressed(file, "utf-8");
    file.Close();
    MSyncFile(file.GetFileName());
}
