#pragma once

#include "foundation/base/MObject.h"
#include "foundation/text/MString.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/style/MStyleScale.h"
#include "ui/text/MFont.h"

#include <array>
#include <memory>

class MResourceLibrary;
class MXMLItem;

/// The fonts of a style, one for each `MStdFont`, opened when they are asked for.
///
/// An element "fonts" has a child for each, with "height" (or "size"), "width", "bold", "italic", "spacebetweenchars",
/// "verticalshift" and "verticalspace", and in it "face" with a "name". Where the machine has no font of that
/// name, the usual names of other systems are tried, and at last the faces that travel inside of the program,
/// the items "face_regular" and "face_bold" of a resource library.
class MFontTable final : public MObject {
public:
    enum class Source { System, Traveling, TravelingFirst };

    /// `traveling` outlives the fonts; null for none. With `Source::Traveling` the machine's fonts are not
    /// asked, for the same picture everywhere; with `TravelingFirst` for what those lack alone.
    MFontTable(MResourceLibrary* traveling, Source source) : traveling(traveling), source(source) {}

    /// Raises "No fonts are available on the system." (0) if there is none for normal text.
    void Load(MXMLItem& definition);
    /// Every font gets another size when it is next asked for.
    void SetScale(MStyleScale scale);
    void Clear();

    /// Never fails: what cannot be opened is the normal font. Null before fonts were loaded.
    [[nodiscard]] MFont* Get(int32_t index);

private:
    struct Entry {
        MString face;
        double height = 13;
        double width = 0;
        double characterSpace = 0;
        int32_t verticalShift = 0;
        int32_t verticalSpace = 0;
        bool isBold = false;
        bool isItalic = false;
        std::unique_ptr<MFont> font;
    };

    void Open(Entry& entry);
    [[nodiscard]] bool OpenSystemFont(Entry& entry, const MString& face);
    [[nodiscard]] bool OpenTravelingFont(Entry& entry);
    void ApplySize(Entry& entry);

    MResourceLibrary* traveling;
    Source source;
    std::array<Entry, std::size(MStdFontNames)> entries;
    bool isLoaded = false;
    MStyleScale scale;
};
