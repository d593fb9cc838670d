#pragma once

#include "foundation/base/MList.h"
#include "ui/text/MCharacterSet.h"
#include "ui/text/MFontDescriptor.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

class MFontFace;
class MStdFileStream;
struct MGlyph;

/// Faces that have the characters which other fonts lack. What a face has is read once, when a character is
/// looked for that no face before it has; who has a character is looked for once and remembered. A face that
/// has given a glyph stays open. Belongs to the thread of the user interface.
///
/// Families are asked in their order. Within one the face comes first that is as bold and as italic as the
/// font that lacks the character. Characters for private use have no substitutes, since only their own font
/// knows what they mean.
class MFontSubstitutes {
public:
    /// A function that lists the fonts, called on first need.
    using Source = std::function<MList<MFontDescriptor>()>;

    /// The families named come first, in their order, then the others as they are listed.
    explicit MFontSubstitutes(Source source, std::span<const char* const> preferredFamilies = {});
    /// These files only, the first one first. For the same picture on every machine.
    explicit MFontSubstitutes(const MList<MString>& paths);
    MFontSubstitutes(const MFontSubstitutes&) = delete;
    MFontSubstitutes& operator=(const MFontSubstitutes&) = delete;
    ~MFontSubstitutes();

    /// Those of the process: the fonts of the machine (`MSystemFonts`), the usual faces of desktops first.
    [[nodiscard]] static MFontSubstitutes& GetInstance();

    /// Fills a glyph from the first face that has the character and takes the size, which is as for
    /// `MFontFace::SetSize`. `flags` are those of the font that lacks it. False if there is none.
    [[nodiscard]] bool Render(char32_t character, uint8_t flags, double height, double width, MGlyph& glyph);

private:
    /// A font that may be a substitute. `family` numbers the families in the order in which they are asked.
    struct Candidate {
        MFontDescriptor font;
        int32_t family = 0;
        bool isRead = false;
        MCharacterSet characters;
        std::unique_ptr<MStdFileStream> file;
        std::unique_ptr<MFontFace> face;
    };

    void List();
    [[nodiscard]] Candidate* Find(char32_t character, uint8_t flags);
    [[nodiscard]] static bool HasCharacter(Candidate& candidate, char32_t character);
    static void Open(Candidate& candidate);

    Source source;
    std::vector<const char*> preferredFamilies;
    bool isListed = false;
    std::vector<Candidate> candidates;  ///< in the order of their families
    std::unordered_map<uint32_t, Candidate*> found;
};
