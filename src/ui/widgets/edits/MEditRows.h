#pragma once

#include "ui/text/MTextPen.h"
#include "ui/widgets/edits/MEditText.h"

#include <vector>

/// How the characters of an edit are shown. The font outlives what uses this; without one nothing is broken.
struct MEditLook {
    MFont* font = nullptr;
    uint32_t revision = 0;  ///< of the font
    int32_t wrapWidth = 0;  ///< what a row has to fit into, in pixels; 0 for as long as it is
    char32_t showChar = 0;  ///< in place of every character; 0 for none

    friend bool operator==(const MEditLook&, const MEditLook&) = default;
};

/// Goes along a row of an edit and tells where its characters stand. A tabulator reaches to the next of stops that
/// are eight spaces apart.
class MEditPen final {
public:
    explicit MEditPen(const MEditLook& look);

    /// The glyph of a character, or null if it has none.
    const MGlyph* Take(char32_t character);
    [[nodiscard]] int32_t GetOrigin() const { return pen.GetOrigin(); }
    [[nodiscard]] int32_t GetEnd() const { return pen.GetEnd(); }

private:
    MTextPen pen;
    const char32_t showChar;
    const int32_t tabWidth;
};

/// Where the rows of a text begin, kept up to date as it changes: only the rows that a change has reached are
/// broken anew, and those behind it are told by their distance from the end of the text, so typing takes no
/// longer in a long text.
///
/// A row ends at a line feed, or where it is broken: behind blanks, which may hang over, and where
/// `MMayBreakBetween` lets it; a word that is wider than a row is cut. There is one row at least.
///
/// Indices are units of the text; pixels count from the beginning of a row.
class MEditRows final {
public:
    /// The text outlives the rows.
    explicit MEditRows(const MEditText& text) : text(text) {}

    /// The rows that a change has reached: from `first` on so many are new, in place of so many others.
    struct Changed {
        int32_t first = 0;
        int32_t removed = 0;
        int32_t added = 0;
    };

    /// Breaks all of the text anew if it looks otherwise than before. Returns whether it did.
    bool SetLook(const MEditLook& newLook);
    [[nodiscard]] const MEditLook& GetLook() const { return look; }
    /// All is broken by the next `SetLook`; until then there is one row.
    void Forget();
    /// Whether the text takes at most so many rows with another look.
    [[nodiscard]] bool Fits(const MEditLook& otherLook, int32_t count) const;
    /// The text was changed, while it was broken.
    Changed Update(int32_t start, int32_t removed, int32_t inserted);

    [[nodiscard]] int32_t GetCount() const { return static_cast<int32_t>(before.size() + behind.size()); }
    [[nodiscard]] int32_t GetStart(int32_t row) const;
    /// Behind the last character that is shown in a row; a line feed is none.
    [[nodiscard]] int32_t GetEnd(int32_t row) const;
    /// The row in which the cursor stands at an index.
    [[nodiscard]] int32_t GetRowOf(int32_t index) const;
    /// Where a character stands in its row, or the end of that.
    [[nodiscard]] int32_t GetX(int32_t row, int32_t index) const;
    /// The stop of a row that is next to a place.
    [[nodiscard]] int32_t GetIndexAt(int32_t row, int32_t x) const;
    /// The last stop of a row: where a row was broken that is the one before its end.
    [[nodiscard]] int32_t GetLastStop(int32_t row) const;
    /// Of the widest row, if rows are not broken.
    [[nodiscard]] int32_t GetWidth();

private:
    struct Row {
        int32_t start;  ///< among those behind the last change, how far before the end of the text
        int32_t width;  ///< 0 where rows are broken
    };

    /// Where the row that begins at `start` ends. `width` becomes its own.
    [[nodiscard]] int32_t BreakRow(const MEditLook& shown, int32_t start, int32_t& width) const;
    [[nodiscard]] bool IsLastRow(int32_t start, int32_t end) const;
    /// Breaks from a row on, the first one of those behind, which begins at `start`, until rows are as before.
    Changed BreakFrom(int32_t start, int32_t unchangedFrom);

    const MEditText& text;
    MEditLook look;
    std::vector<Row> before = {{0, 0}};
    std::vector<Row> behind;  ///< the last one comes first
    int32_t widest = 0;
    bool isWidestKnown = false;
};
