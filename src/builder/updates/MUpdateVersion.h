#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "builder/definition/MSourceTree.h"
#include "builder/output/MBuilderOutput.h"
#include "builder/output/MCommandInputs.h"
#include "builder/reports/MPayloadFile.h"

#include <unordered_map>

/// One of the versions of a product that an update is made between: an installer in any of its forms, or a
/// definition with the files that it names.
class MUpdateVersion {
public:
    /// The definition's `{{NAME}}` are filled from `defines`; an installer has none. Raises what opening and
    /// reading raise, "\"{0}\" is an update. Name the installers that it is made from." (0), and what
    /// `MCheckItemNames` raises.
    MUpdateVersion(const MString& path, const MList<MString>& defines);

    /// Tells what is wrong with a definition, and gives false if it cannot be packed.
    [[nodiscard]] bool Check(MBuilderOutput& output) const;

    [[nodiscard]] const MString& GetPath() const { return path; }
    [[nodiscard]] const MXMLItem& GetRoot() const;
    /// What a `file` brings; null if it brings nothing.
    [[nodiscard]] const MSourceItem* FindContent(const MXMLItem& file) const;
    /// Adds all that is read.
    void AddInputs(MCommandInputs& inputs) const;

private:
    void ReadDefinition(const MList<MString>& defines);
    void ReadPayload();

    MString path;
    std::unique_ptr<MPayloadFile> payload;  ///< null for a definition
    MDefinition definition;
    MProblemList problems;
    MSourceTree sources;
    std::unordered_map<const MXMLItem*, MSourceItem> contents;
};
