#include "builder/commands/MBlobCommand.h"

#include "builder/blobs/MBlobWriter.h"
#include "builder/commands/MRunBuilder.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "streams/resources/MResourceLibrary.h"

#include <algorithm>

namespace {

constexpr int32_t NumberWidth = 12;

MString PadLeft(const MString& text) {
    MString padded;
    padded.Append(MChar(' '), std::max(0, NumberWidth - text.GetLength()));
    return padded + text;
}

void Pack(const MBuilderOptions& options, MBuilderOutput& output) {
    MBlobWriter writer(options.input, options.description);
    writer.ReadSources();
    writer.WriteFile(options.output);
    output.Tell(MFormat("{0}: {1} items, {2} bytes in, {3} bytes out", options.output, writer.GetItemCount(),
                        writer.GetSourceSize(), MFile::GetFileSize(MFile::Normalize(options.output))));
}

void List(const MString& path, MBuilderOutput& output) {
    if (MFile::IsDirectory(MFile::Normalize(path)))
        MRaise(MExceptionGeneral, "\"{0}\" is a folder. To pack it, name a description and --output.", path);
    MResourceLibrary library;
    library.LoadFile(path);
    output.Tell(MFormat("root        {0}", library.GetRoot().GetName()));
    output.Tell(MFormat("data        {0} bytes", library.GetDataSize()));
    output.Tell(MFormat("items       {0}", library.GetResourceCount()));
    output.Tell("\nItems");
    output.Tell("      offset       stored  form   id");
    for (int32_t i = 0; i < library.GetResourceCount(); ++i) {
        MResource& resource = library.GetResource(i);
        output.Tell(PadLeft(resource.GetItem().GetAttribute("offset")) + " " +
                    PadLeft(MNumberToText(resource.GetStoredSize())) +
                    (resource.IsCompressed() ? "  zlib   " : "  plain  ") + resource.GetId());
    }
}

}  // namespace

int32_t MRunBlobCommand(const MBuilderOptions& options, MBuilderOutput& output) {
    if (options.description.IsEmpty())
        List(options.input, output);
    else
        Pack(options, output);
    return MBuilderExitDone;
}
