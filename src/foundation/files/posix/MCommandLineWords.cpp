#include "foundation/files/posix/MCommandLineWords.h"

#include <optional>

namespace {

class CommandLineSplitter {
public:
    MList<MString> Split(const MString& line) {
        for (int32_t i = 0; i < line.GetLength(); ++i) Take(line[i]);
        TakeBackslashes();
        EndWord();
        return words;
    }

private:
    void Take(MChar character) {
        if (character == u'\\') {
            ++backslashes;
        } else if (character == u'"') {
            TakeQuotationMark();
        } else {
            TakeBackslashes();
            if (!isQuoted && (character == u' ' || character == u'\t'))
                EndWord();
            else
                GetWord().Append(character);
        }
    }
    void TakeQuotationMark() {
        const bool isPlain = backslashes % 2 == 1;
        backslashes /= 2;
        TakeBackslashes();
        // Also two marks with nothing between them are an argument.
        MString& argument = GetWord();
        if (isPlain)
            argument.Append(MChar('"'));
        else
            isQuoted = !isQuoted;
    }
    void TakeBackslashes() {
        if (backslashes > 0) GetWord().Append(MChar('\\'), backslashes);
        backslashes = 0;
    }
    void EndWord() {
        if (word) words.Add(*word);
        word.reset();
    }
    MString& GetWord() { return word ? *word : word.emplace(); }

    MList<MString> words;
    std::optional<MString> word;
    int32_t backslashes = 0;
    bool isQuoted = false;
};

}  // namespace

MList<MString> MSplitCommandLine(const MString& line) {
    return CommandLineSplitter().Split(line);
}
