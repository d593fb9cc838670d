#pragma once

#include "foundation/base/MBuffer.h"
#include "foundation/text/MChar.h"

#include <cstdint>

template <class T, int32_t Mode>
class MList;

/// The text of the system: a value of UTF-16 units, cheap to pass and copy.
///
/// A string is either a literal, which points at a NUL-terminated 8-bit constant and has cost no
/// allocation, or a heap string, whose block is shared by its copies and counted atomically. Every
/// change goes through a private copy (`Reserve`). Lengths and indices are in units, without the
/// terminator. 8-bit text widens by sign extension; use the codecs of MEncoding.h for text that has
/// an encoding.
///
/// `==` ignores ASCII case and folds diacritics; `IsExactly` is the comparison that does not.
/// A string that is being changed belongs to one thread; copies may be read by others.
class MString {
public:
    static constexpr int32_t NotFound = -1;
    static constexpr int32_t MaximumLength = 0x7FFFFFFF;

    constexpr MString() noexcept = default;
    /// Points at a constant that outlives the string; null gives the empty literal. Never allocates.
    constexpr MString(const char* literal) noexcept
        : narrow(literal ? literal : ""),
          length(literal ? static_cast<int32_t>(__builtin_strlen(literal)) : 0) {}
    MString(const MString& other) noexcept;
    MString(MString&& other) noexcept;
    MString& operator=(const MString& other) noexcept;
    MString& operator=(MString&& other) noexcept;
    ~MString() {
        if (!IsLiteral()) Release();
    }

    /// Copies NUL-terminated text; null gives the empty literal. Raises "Out of memory." (0).
    [[nodiscard]] static MString Copy(const char* text);
    [[nodiscard]] static MString Copy(const char16_t* text);
    /// Copies `count` characters. Raises "Out of memory." (0).
    [[nodiscard]] static MString Copy(const char* text, int32_t count);
    [[nodiscard]] static MString Copy(const char16_t* text, int32_t count);
    /// Copies a buffer up to its first zero or its end.
    explicit MString(const MCHARBuffer& buffer);
    explicit MString(const MWCHARBuffer& buffer);
    /// Prints by the runtime library into at most 8,191 characters. Only for printing numbers.
    [[nodiscard]] static MString Print(const char* format, ...) __attribute__((format(printf, 1, 2)));

    [[nodiscard]] int32_t GetLength() const { return length; }
    [[nodiscard]] bool IsEmpty() const { return length == 0; }
    [[nodiscard]] bool IsLiteral() const { return (flags & Literal) != 0; }
    /// A literal's byte sign-extended, or the stored unit. The index is not range-checked.
    [[nodiscard]] MChar operator[](int32_t index) const {
        return IsLiteral() ? MChar(narrow[index]) : MChar(units[index]);
    }
    /// The units of a heap string, NUL-terminated; null for a literal.
    [[nodiscard]] const char16_t* GetUnits() const { return IsLiteral() ? nullptr : units; }
    /// The bytes of a literal, NUL-terminated; null for a heap string.
    [[nodiscard]] const char* GetLiteral() const { return IsLiteral() ? narrow : nullptr; }

    /// The difference of the first differing pair after diacritic folding, 0 if there is none.
    [[nodiscard]] int32_t Compare(const MString& other) const;
    /// As `Compare`, with ASCII case folded too, over at most `count` characters of this string from
    /// `start` and of `other` from its beginning.
    [[nodiscard]] int32_t CompareNoCase(const MString& other, int32_t count = MaximumLength,
                                        int32_t start = 0) const;
    /// Unit for unit the same, with no folding at all.
    [[nodiscard]] bool IsExactly(const MString& other) const;
    friend bool operator==(const MString& left, const MString& right) {
        return left.CompareNoCase(right) == 0;
    }
    /// True if the text begins or ends with the other one, ignoring ASCII case.
    [[nodiscard]] bool StartsWith(const MString& text) const;
    [[nodiscard]] bool EndsWith(const MString& text) const;

    /// From `start`, at most `count` characters. A negative start or nothing to give yields the empty
    /// string; the whole string yields a shared copy.
    [[nodiscard]] MString Substring(int32_t start, int32_t count = MaximumLength) const;
    /// The first or, searching backward from `start`, the last position of a character, or `NotFound`.
    [[nodiscard]] int32_t FindChar(MChar character, int32_t start = 0) const;
    [[nodiscard]] int32_t FindCharBackward(MChar character, int32_t start = MaximumLength) const;
    /// The first position of a text from `start`, ignoring ASCII case, or `NotFound`.
    [[nodiscard]] int32_t Find(const MString& text, int32_t start = 0) const;
    [[nodiscard]] bool Contains(const MString& text) const { return Find(text) != NotFound; }
    /// Replaces every occurrence, ignoring ASCII case, searching on after the inserted text.
    /// Returns the number of replacements.
    int32_t Replace(const MString& text, const MString& replacement);
    /// Replaces pair after pair and repeats whole passes until one changes nothing; returns the total.
    /// A replacement that holds its own pattern would never end.
    int32_t Replace(const MList<MString, 0>& texts, const MList<MString, 0>& replacements);
    int32_t ReplaceChar(MChar character, const MString& replacement);

    /// The index is clamped to the length.
    void Insert(int32_t index, MChar character);
    void Insert(int32_t index, const MString& text);
    /// A negative start does nothing; the count is clamped.
    void Remove(int32_t start, int32_t count = MaximumLength);
    void ReplaceRange(int32_t start, int32_t count, const MString& text);
    void Append(const MString& text);
    void Append(const char* text, int32_t count);
    void Append(const char16_t* text, int32_t count);
    void Append(MChar character, int32_t count = 1);
    void AppendNewline() { Append(MChar('\n')); }
    MString& operator+=(const MString& text) {
        Append(text);
        return *this;
    }
    friend MString operator+(MString left, const MString& right) {
        left.Append(right);
        return left;
    }
    void SetChar(int32_t index, MChar character);
    /// Cuts the text to `count` characters; a shorter text stays.
    void Cut(int32_t count);

    /// Blanks are characters below 33.
    void TrimLeft();
    void TrimRight();
    void Trim();
    [[nodiscard]] MString Trimmed() const;
    void RemoveNonTextControls();
    void RemoveBlanks();
    void RemoveNewlines();
    void ChangeBlanksToSpaces();
    /// Keeps the characters that `filter.Accept(MChar)` accepts (see MCharFilter.h).
    template <class Filter>
    void KeepAccepted(const Filter& filter);
    [[nodiscard]] MString ToLower() const;
    void MakeLower();
    /// Pieces between runs of the delimiter; no piece is empty.
    [[nodiscard]] MList<MString, 0> Split(MChar delimiter) const;

    /// The low bytes after diacritic folding; a literal is attached as it stands.
    [[nodiscard]] MCHARBuffer ToNarrow(bool terminate = true) const;
    /// UTF-8 through `MEncoding::UTF8Codec`, with that codec's rules.
    [[nodiscard]] MCHARBuffer ToUTF8(bool terminate = true) const;
    /// As `ToUTF8` without terminator, but a literal's bytes are attached unchanged.
    [[nodiscard]] MCHARBuffer ToUTF8Attached() const;
    /// 16-bit units, always terminated; a heap string's block is attached and must outlive the buffer.
    [[nodiscard]] MWCHARBuffer ToWide() const;

    /// Makes the string private and a heap string with room for `count` characters, the terminator
    /// included. Never shrinks a private block; cuts the text of any other form to `count` - 1.
    /// Raises "Out of memory." (0).
    void Reserve(int32_t count);
    /// Sets the length and gives the units, private and NUL-terminated, to be written; those that the
    /// text did not have before are unspecified. Raises "Out of memory." (0).
    char16_t* Resize(int32_t newLength);

private:
    enum Flag : uint32_t { Literal = 1 };
    struct Block;

    [[nodiscard]] Block* GetBlock() const;
    /// Lets go of a heap string's block.
    void Release() noexcept;
    template <class Keep>
    void KeepIf(Keep keep);
    /// Replaces what `findFrom(start)` finds, `count` characters each time; returns the number of
    /// replacements.
    template <class FindFrom>
    int32_t ReplaceFound(FindFrom findFrom, int32_t count, const MString& replacement);

    union {
        const char* narrow = "";
        char16_t* units;
    };
    int32_t length = 0;
    uint32_t flags = Literal;
};

template <class Filter>
void MString::KeepAccepted(const Filter& filter) {
    MString kept;
    for (int32_t i = 0; i < length; ++i)
        if (filter.Accept((*this)[i])) kept.Append((*this)[i]);
    *this = kept;
}
