#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "builder/output/MBuilderOutput.h"
#include "builder/updates/MSignature.h"
#include "builder/updates/MUpdateCollection.h"

#include <optional>

/// Writes the files that a web server answers update managers with, and the lines that make nginx do so:
///
///     nginx.conf
///     [ID/]index.xml            the reply to op=getindex
///     [ID/]updates/NAME.dat     the replies to op=getupdate&updatename=NAME
///
/// and, if there is a key to sign by, index.xml.sig for op=getindexsignature and NAME.dat.sig for
/// op=getupdatesignature&updatename=NAME.
///
/// A tree that is there is brought up to date while it is served: files come into their places whole, and the
/// index last.
class MUpdateServerCommand {
public:
    /// The options and the output outlive the command.
    MUpdateServerCommand(const MBuilderOptions& options, MBuilderOutput& output);

    /// Gives the exit code: problems are told, all at once, and then nothing is written. Raises what reading and
    /// writing raise.
    [[nodiscard]] int32_t Run();

private:
    void CheckOptions();
    void RefuseOutputAmongInputs() const;
    void WriteUpdates() const;
    void WriteIndex() const;
    /// Signs a file of the tree; without a key an older signature goes, as it would no longer fit.
    void Sign(const MString& path) const;
    void WriteConfiguration() const;
    void TellLeftovers() const;
    [[nodiscard]] MString GetUpdatePath(const MString& fileName) const;

    const MBuilderOptions& options;
    MBuilderOutput& output;
    MString tree;       ///< what is written
    MString directory;  ///< of the product in it
    MString base;       ///< of requests
    std::optional<MRSAKey> key;
    MUpdateCollection updates;
    MList<MString> problems;
};
