#include "setup/console/MUnattendedOptions.h"

#include "foundation/files/MFile.h"
#include "setup/MRefusal.h"

namespace {

const char* const RequestWord = "silent";

[[noreturn]] void RaiseWord(const MString& word, const char* advice) {
    MRefuse("The word \"{0}\" cannot be used: {1}.", word, advice);
}

/// What stands behind `prefix` in `word`; absent if the word begins otherwise.
std::optional<MString> TextAfter(const MString& word, const char* prefix) {
    if (!word.StartsWith(prefix)) return std::nullopt;
    return word.Substring(MString(prefix).GetLength());
}

/// Splits "name=text". A name may hold "=" only if `lastSign` says that the last one counts.
MNamedChoice SplitChoice(const MString& word, const MString& choice, bool lastSign, const char* advice) {
    const int32_t sign = lastSign ? choice.FindCharBackward('=') : choice.FindChar('=');
    if (sign <= 0) RaiseWord(word, advice);
    return {choice.Substring(0, sign), choice.Substring(sign + 1)};
}

}  // namespace

bool MUnattendedOptions::IsRequested(const MList<MString>& arguments) {
    for (const MString& argument : arguments)
        if (argument == RequestWord) return true;
    return false;
}

MList<MString> MUnattendedOptions::WithoutRequest(const MList<MString>& arguments) {
    MList<MString> words;
    for (const MString& argument : arguments)
        if (!(argument == RequestWord)) words.Add(argument);
    return words;
}

MUnattendedOptions::MUnattendedOptions(const MList<MString>& words, const MString& startDirectory) {
    for (const MString& word : words) ReadWord(word, startDirectory);
}

void MUnattendedOptions::ReadWord(const MString& word, const MString& startDirectory) {
    if (word == "accept-licence")
        AcceptLicence = true;
    else if (const auto id = TextAfter(word, "configuration="))
        Configuration = *id;
    else if (const auto component = TextAfter(word, "component:"))
        ReadComponent(word, *component);
    else if (const auto directory = TextAfter(word, "directory:"))
        ReadDirectory(word, *directory, startDirectory);
    else if (const auto removal = TextAfter(word, "remove-older="))
        ReadRemoveOlder(word, *removal);
    else if (const auto answer = TextAfter(word, "locked="))
        ReadLocked(word, *answer);
    else
        RaiseWord(word,
                  "the words of a silent run are accept-licence, configuration=ID, component:NAME=on|off, "
                  "directory:ID=PATH, remove-older=yes|no and locked=abort|ignore|retry");
}

void MUnattendedOptions::ReadComponent(const MString& word, const MString& choice) {
    const char* const advice = "write component:NAME=on or component:NAME=off";
    const MNamedChoice component = SplitChoice(word, choice, true, advice);
    if (!(component.Text == "on") && !(component.Text == "off")) RaiseWord(word, advice);
    Components.Add(component);
}

void MUnattendedOptions::ReadDirectory(const MString& word, const MString& choice,
                                       const MString& startDirectory) {
    const char* const advice = "write directory:ID=PATH";
    MNamedChoice directory = SplitChoice(word, choice, false, advice);
    if (directory.Text.IsEmpty()) RaiseWord(word, advice);
    const bool isComplete = MFile::IsAbsolute(directory.Text);
    directory.Text =
        MFile::Normalize(isComplete ? directory.Text : MFile::Join(startDirectory, directory.Text));
    Directories.Add(directory);
}

void MUnattendedOptions::ReadRemoveOlder(const MString& word, const MString& answer) {
    RemoveOlder = answer == "yes";
    if (!RemoveOlder && !(answer == "no")) RaiseWord(word, "write remove-older=yes or remove-older=no");
}

void MUnattendedOptions::ReadLocked(const MString& word, const MString& answer) {
    if (answer == "abort")
        Locked = MRetryAnswer::Refuse;
    else if (answer == "ignore")
        Locked = MRetryAnswer::Ignore;
    else if (answer == "retry")
        Locked = MRetryAnswer::Retry;
    else
        RaiseWord(word, "write locked=abort, locked=ignore or locked=retry");
}
