#include "setup/console/MTextDialogs.h"

#include "foundation/module/MPlatform.h"
#include "setup/console/MConsoleView.h"
#include "streams/basic/MConsole.h"
#include "streams/basic/MConsoleStream.h"
#include "ui/stml/MSTMLPlainText.h"

namespace {

void WriteLine(std::FILE* file, const MString& text) {
    (void)MWriteConsoleText(file, text + "\n");
    std::fflush(file);
}

/// The first letter of the user's answer in lower case, or 0 at the end of input.
MChar ReadAnswer(const MString& question, const char* choices) {
    WriteLine(stderr, question);
    (void)MWriteConsoleText(stderr, choices);
    std::fflush(stderr);
    MConsoleStream console;
    char answer[16];
    if (console.ReadLine(answer, sizeof answer) == MLineState::End) return MChar();
    return MChar(answer[0]).ToLower();
}

}  // namespace

void MTextDialogs::ShowError(const MString& text) {
    WriteLine(stderr, text);
}

void MTextDialogs::ShowInformation(const MString& markup) {
    WriteLine(stdout, MSTMLPlainText::Of(markup));
}

void MTextDialogs::ShowText(const MString& prompt, const MString& text) {
    WriteLine(stdout, prompt + " " + text);
}

std::unique_ptr<MProgressView> MTextDialogs::OpenProgress(const MString& title) {
    auto view = std::make_unique<MConsoleView>();
    view->SetText(title);
    return view;
}

bool MTerminalDialogs::AskYesNo(const MString& question) {
    return ReadAnswer(question, "[y]es or [N]o? ") == MChar('y');
}

MRetryAnswer MTerminalDialogs::AskRetry(const MString& question) {
    const MChar answer = ReadAnswer(question, "[y]es, [N]o or [i]gnore? ");
    if (answer == MChar('y')) return MRetryAnswer::Retry;
    return answer == MChar('i') ? MRetryAnswer::Ignore : MRetryAnswer::Refuse;
}

bool MUnattendedDialogs::AskYesNo(const MString& question) {
    WriteLine(stderr, question);
    return false;
}

MRetryAnswer MUnattendedDialogs::AskRetry(const MString& question) {
    if (retries == 0) WriteLine(stderr, question);
    if (locked != MRetryAnswer::Retry) return locked;
    if (++retries > MaximumRetries) return MRetryAnswer::Refuse;
    MPlatform::Sleep(pauseMilliseconds);
    return MRetryAnswer::Retry;
}
