#include "setup/console/MUnattendedOptions.h"

#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"

namespace {

const char* const RequestWord = "silent";

/// What stands behind `prefix` in `word`; absent if the word begins otherwise.
std::optional<MString> TextAfter(const MString& word, const char* prefix) {
    if (!word.StartsWith(prefix)) return std::nullopt;
    return word.Substring(MString(prefix).GetLength());
}

/// Splits "name=text" at the sign whose index is given, which may be missing.
MNamedChoice SplitChoice(const MString& word, const MString& choice, int32_t sign, const char* advice) {
    if (sign <= 0) MRefuseWord(word, advice);
    return {choice.Substring(0, sign), choice.Substring(sign + 1)};
}

template <class Value>
Value FindAnswer(const MString& word, const MString& answer,
                 std::initializer_list<std::pair<const char*, Value>> answers, const char* advice) {
    for (const auto& [name, value] : answers)
        if (answer == name) return value;
    MRefuseWord(word, advice);
}

/// Where there are drives, a path that depends on the current one or on the current directory of one, and one
/// of another machine: "\sub", "C:sub", "\\server\share". The state would not find it again.
bool LacksFixedDrive(const MString& path) {
    const auto isSeparator = [&path](int32_t index) {
        return index < path.GetLength() && (path[index] == u'/' || path[index] == u'\\');
    };
    if (MPlatform::HasRootDirectory()) return false;
    const bool hasDrive = path.GetLength() > 1 && path[1] == u':';
    return hasDrive ? !isSeparator(2) : isSeparator(0);
}

}  // namespace

void MRefuseWord(const MString& word, const char* advice) {
    MRefuse("The word \"{0}\" cannot be used: {1}.", word, advice);
}

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
    if (word == "accept-licence") {
        acceptLicence = true;
    } else if (const auto id = TextAfter(word, "configuration=")) {
        configuration = *id;
    } else if (const auto component = TextAfter(word, "component:")) {
        const char* const advice = "write component:NAME=on or component:NAME=off";
        // A name may hold the sign, the answer cannot.
        const MNamedChoice choice = SplitChoice(word, *component, component->FindCharBackward('='), advice);
        (void)FindAnswer<bool>(word, choice.text, {{"on", true}, {"off", false}}, advice);
        components.Add(choice);
    } else if (const auto directory = TextAfter(word, "directory:")) {
        const char* const advice = "write directory:ID=PATH";
        MNamedChoice choice = SplitChoice(word, *directory, directory->FindChar('='), advice);
        if (choice.text.IsEmpty()) MRefuseWord(word, advice);
        if (LacksFixedDrive(choice.text)) MRefuseWord(word, "begin the path with a drive, as in C:\\Folder");
        const MString path = MPlatform::TakePathText(choice.text);
        choice.text = MFile::Normalize(MFile::IsAbsolute(path) ? path : MFile::Join(startDirectory, path));
        directories.Add(choice);
    } else if (const auto removal = TextAfter(word, "remove-older=")) {
        removeOlder = FindAnswer<bool>(word, *removal, {{"yes", true}, {"no", false}},
                                       "write remove-older=yes or remove-older=no");
    } else if (const auto programs = TextAfter(word, "execute=")) {
        execute = FindAnswer<MExecuteScope>(word, *programs,
                                            {{"all", MExecuteScope::Programs}, {"none", MExecuteScope::None}},
                                            "write execute=all or execute=none");
    } else if (const auto answer = TextAfter(word, "locked=")) {
        locked = FindAnswer<MRetryAnswer>(word, *answer,
                                          {{"abort", MRetryAnswer::Refuse},
                                           {"ignore", MRetryAnswer::Ignore},
                                           {"retry", MRetryAnswer::Retry}},
                                          "write locked=abort, locked=ignore or locked=retry");
    } else {
        MRefuseWord(word,
                    "the words of a silent run are accept-licence, configuration=ID, component:NAME=on|off, "
                    "directory:ID=PATH, remove-older=yes|no, execute=all|none and locked=abort|ignore|retry");
    }
}
