#include "ui/widgets/edits/MTextStops.h"

#include "foundation/text/MUnicode.h"
#include "ui/text/MLineBreaks.h"
#include "ui/text/MTextMeasure.h"

#include <algorithm>

namespace {

constexpr char32_t Joiner = 0x200D;

/// The unit at which the code point before an index above 0 begins.
int32_t StepBack(const MEditText& text, int32_t index) {
    --index;
    const bool isPair = index > 0 && text[index].IsLowSurrogate() && text[index - 1].IsHighSurrogate();
    return isPair ? index - 1 : index;
}

char32_t GetCharacter(const MEditText& text, int32_t index) {
    return MTakeCodePoint(text, index);
}

enum class Kind { Blank, LineBreak, Letter, Sign };

Kind GetKind(MChar unit) {
    if (unit.IsNewline()) return Kind::LineBreak;
    if (unit.IsBlank() || unit == 0xA0 || unit == 0x3000) return Kind::Blank;
    return unit.IsAlphanumeric() || unit == '_' || unit >= 0x80 ? Kind::Letter : Kind::Sign;
}

/// The first place behind `index` where another kind begins. Line breaks are one kind each.
int32_t SkipKind(const MEditText& text, int32_t index) {
    const Kind kind = GetKind(text[index++]);
    if (kind == Kind::LineBreak) return index;
    while (index < text.GetLength() && GetKind(text[index]) == kind) ++index;
    return index;
}

int32_t SkipKindBack(const MEditText& text, int32_t index) {
    const Kind kind = GetKind(text[--index]);
    if (kind == Kind::LineBreak) return index;
    while (index > 0 && GetKind(text[index - 1]) == kind) --index;
    return index;
}

}  // namespace

bool MIsAttached(char32_t previous, char32_t character) {
    const auto isLayout = [](char32_t either) { return either == '\n' || either == '\t'; };
    if (isLayout(previous) || isLayout(character)) return false;
    return MIsCombining(character) || MIsInvisible(character) || previous == Joiner;
}

int32_t MGetStopAt(const MEditText& text, int32_t index) {
    index = std::clamp(index, 0, text.GetLength());
    if (index == 0 || index == text.GetLength()) return index;
    if (text[index].IsLowSurrogate() && text[index - 1].IsHighSurrogate()) --index;
    while (index > 0) {
        const int32_t before = StepBack(text, index);
        if (!MIsAttached(GetCharacter(text, before), GetCharacter(text, index))) break;
        index = before;
    }
    return index;
}

int32_t MGetNextStop(const MEditText& text, int32_t index) {
    if (index >= text.GetLength()) return text.GetLength();
    char32_t previous = MTakeCodePoint(text, index);
    while (index < text.GetLength()) {
        int32_t next = index;
        const char32_t character = MTakeCodePoint(text, next);
        if (!MIsAttached(previous, character)) break;
        previous = character;
        index = next;
    }
    return index;
}

int32_t MGetPreviousStop(const MEditText& text, int32_t index) {
    return index <= 0 ? 0 : MGetStopAt(text, StepBack(text, index));
}

int32_t MGetNextWord(const MEditText& text, int32_t index) {
    if (index >= text.GetLength()) return text.GetLength();
    if (GetKind(text[index]) != Kind::Blank) index = SkipKind(text, index);
    if (index < text.GetLength() && GetKind(text[index]) == Kind::Blank) index = SkipKind(text, index);
    return MGetStopAt(text, index);
}

int32_t MGetPreviousWord(const MEditText& text, int32_t index) {
    if (index > 0 && GetKind(text[index - 1]) == Kind::Blank) index = SkipKindBack(text, index);
    if (index > 0 && GetKind(text[index - 1]) != Kind::Blank) index = SkipKindBack(text, index);
    return MGetStopAt(text, index);
}

MTextRange MGetWordAt(const MEditText& text, int32_t index) {
    if (text.GetLength() == 0) return {};
    index = std::clamp(index, 0, text.GetLength() - 1);
    const int32_t end = SkipKind(text, index);
    return {MGetStopAt(text, SkipKindBack(text, index + 1)), MGetStopAt(text, end)};
}
