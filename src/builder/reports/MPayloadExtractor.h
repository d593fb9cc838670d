#pragma once

#include "builder/output/MBuilderOutput.h"
#include "builder/reports/MPayloadFile.h"
#include "builder/reports/MPayloadItem.h"

/// Unpacks a payload to a directory: a folder for each `files` element, one each for the licence and the
/// images, and "definition.xml", from which it can be packed again.
class MPayloadExtractor {
public:
    /// The file and the output outlive the object.
    MPayloadExtractor(MPayloadFile& file, MBuilderOutput& output) : file(file), output(output) {}

    /// The directory is created; one that is there must be empty. Raises "\"{0}\" is not empty. ..." and "The
    /// name \"{0}\" in the ... . ..." (0) with what `MFindNameFault` finds, before anything is written, and
    /// what reading and writing raise.
    void Run(const MString& directory);

private:
    void RequireEmpty(const MString& directory) const;
    void CheckNames(const MList<MPayloadItem>& items);
    void ExtractItem(const MPayloadItem& item, const MString& path);
    /// Makes the tree say where its sources are now.
    void PointAtSources(const MList<MPayloadItem>& items);
    void WriteDefinition(const MString& path);

    MPayloadFile& file;
    MBuilderOutput& output;
};
