#include "builder/blobs/MBlobWriter.h"

#include "foundation/base/MAddSize.h"
#include "foundation/files/MFile.h"
#include "foundation/xml/MXMLItemIterator.h"
#include "foundation/xml/MXMLParser.h"
#include "streams/basic/MOutputFile.h"
#include "streams/resources/MResourceLibrary.h"

#include <algorithm>

namespace {

constexpr const char* ItemPrefix = "resource";

void ForgetPlaces(MXMLItem& resources) {
    MXMLItemIterator items(resources, ItemPrefix, MXMLItemIterator::Match::Prefix);
    while (MXMLItem* item = items.Next())
        for (const char* attribute : {"offset", "size", "compressed"}) item->RemoveAttribute(attribute);
}

void RefuseItemsWithoutFile(MXMLItem& resources) {
    MXMLItemIterator items(resources, ItemPrefix, MXMLItemIterator::Match::Prefix);
    while (MXMLItem* item = items.Next())
        if (!item->HasAttribute("offset"))
            MRaise(
                MExceptionGeneral,
                "The description has an element \"{0}\", and the folder has no file for it. Add the file, or "
                "delete the element.",
                item->GetName());
}

MMemoryStream Compress(MMemoryStream& content) {
    MMemoryStream packed;
    MZLibStream compressed;
    compressed.Open(&packed, true);
    content.Rewind();
    content.CopyAllTo(compressed);
    compressed.Finish();
    return packed;
}

}  // namespace

MBlobWriter::MBlobWriter(const MString& folder, const MString& description)
    : folder(MFile::Normalize(folder)), description(MFile::Normalize(description)) {}

void MBlobWriter::ReadSources() {
    LoadDescription();
    MXMLItem& resources = *root.GetOrAddSubItem("resources");
    ForgetPlaces(resources);
    inputs.Add(description);
    for (const MBlobSource& source : MCollectBlobSources(folder, description)) {
        inputs.Add(source.path);
        AddItem(resources, source);
    }
    RefuseItemsWithoutFile(resources);
}

void MBlobWriter::LoadDescription() {
    MStdFileStream file;
    file.Open(description, MOpenRead);
    MLibraryInternals::MXMLParser parser(root);
    try {
        parser.ParseDocument(file);
    } catch (const MException& exception) {
        MRaise(exception.GetCode(), "{0}:{1}: {2} Correct the XML.", description,
               std::max(parser.GetLine(), 1), exception.GetMessage());
    }
}

void MBlobWriter::AddItem(MXMLItem& resources, const MBlobSource& source) {
    MStdFileStream file;
    file.Open(source.path, MOpenRead);
    MAddSize(sourceSize, file.GetSize());
    if (sourceSize > INT32_MAX)
        MRaise(MExceptionGeneral, "The files take more than 2 GiB, and a blob is read into memory whole.");
    MMemoryStream content;
    file.CopyAllTo(content);
    MXMLItem& item = *resources.GetOrAddSubItem(ItemPrefix + source.id);
    item.SetAttribute("id", source.id);
    StoreContent(item, content);
    ++itemCount;
}

void MBlobWriter::StoreContent(MXMLItem& item, MMemoryStream& content) {
    MMemoryStream packed = Compress(content);
    const bool isSmaller = packed.GetSize() < content.GetSize();
    MMemoryStream& stored = isSmaller ? packed : content;
    item.SetAttribute("offset", data.GetPosition());
    item.SetAttribute("size", stored.GetSize());
    if (isSmaller) item.SetAttribute("compressed", "1");
    stored.Rewind();
    stored.CopyAllTo(data);
}

void MBlobWriter::WriteFile(const MString& path) {
    const MString target = MFile::Normalize(path);
    if (MIsInside(target, folder))
        MRaise(MExceptionGeneral,
               "The output \"{0}\" is in the folder to pack. Write it to another directory.", target);
    inputs.RefuseOutput(target);
    inputs.RefuseOutput(target + MOutputFile::UnfinishedSuffix);
    data.Trim();
    MResourceLibrary library;
    library.Assign(root, data.GetBuffer());
    MOutputFile file(target);
    library.Save(file);
    file.Commit();
}
