#pragma once

#include "foundation/base/MList.h"
#include "foundation/base/MRefusal.h"
#include "foundation/views/MUserDialogs.h"
#include "setup/choices/MExecuteChoices.h"

#include <optional>

/// Raises `MRefusal` for a word of the command line, with what would be right.
[[noreturn]] void MRefuseWord(const MString& word, const char* advice);

/// A name and the text given for it.
struct MNamedChoice {
    MString name;
    MString text;
};

/// The words of a run without window and questions:
///
///     silent accept-licence [configuration=ID] [component:NAME=on|off ...] [directory:ID=PATH ...]
///            [remove-older=yes|no] [execute=all|none] [locked=abort|ignore|retry]
///
/// `silent` may stand anywhere on the command line. Without it no other word means anything here.
class MUnattendedOptions {
public:
    /// Whether `silent` is among the arguments.
    [[nodiscard]] static bool IsRequested(const MList<MString>& arguments);
    /// The arguments without `silent`.
    [[nodiscard]] static MList<MString> WithoutRequest(const MList<MString>& arguments);

    /// Reads the words. Relative paths are completed by `startDirectory`. Raises
    /// `MRefusal`, which names the word and what would be right, for one that is unknown or incomplete.
    MUnattendedOptions(const MList<MString>& words, const MString& startDirectory);

    bool acceptLicence = false;
    /// `id` of the configuration; absent when the proposal shall stand.
    std::optional<MString> configuration;
    MList<MNamedChoice> components;   ///< row names with "on" or "off"
    MList<MNamedChoice> directories;  ///< ids with canonical paths
    /// Whether the older versions that the definition names are removed first.
    bool removeOlder = false;
    /// What is started of the programs that the definition names.
    MExecuteScope execute = MExecuteScope::UnaskedPrograms;
    MRetryAnswer locked = MRetryAnswer::Refuse;

private:
    void ReadWord(const MString& word, const MString& startDirectory);
};
