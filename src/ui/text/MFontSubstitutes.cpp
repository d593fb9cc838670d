#include "ui/text/MFontSubstitutes.h"

#include "foundation/base/MGuard.h"
#include "streams/basic/MStdFileStream.h"
#include "ui/text/MFontFace.h"
#include "ui/text/MGlyph.h"
#include "ui/text/MSystemFonts.h"

#include <algorithm>

namespace {

/// What desktops have for many scripts; of each script the family that goes best with plain sans-serif text.
constexpr const char* UsualFamilies[] = {"Segoe UI",
                                         "DejaVu Sans",
                                         "Noto Sans",
                                         "Liberation Sans",
                                         "Arial",
                                         "Meiryo",
                                         "Yu Gothic UI",
                                         "MS Gothic",
                                         "Microsoft YaHei",
                                         "SimSun",
                                         "Microsoft JhengHei",
                                         "Malgun Gothic",
                                         "Noto Sans CJK JP",
                                         "Noto Sans CJK SC",
                                         "Noto Sans JP",
                                         "IPAGothic",
                                         "WenQuanYi Zen Hei",
                                         "Droid Sans Fallback",
                                         "Noto Sans Arabic",
                                         "Noto Sans Hebrew",
                                         "Leelawadee UI",
                                         "Nirmala UI",
                                         "Gadugi",
                                         "Ebrima",
                                         "FreeSans",
                                         "Segoe UI Symbol",
                                         "Noto Sans Symbols",
                                         "Noto Sans Symbols2",
                                         "Noto Sans Math",
                                         "Symbola",
                                         "Unifont"};

bool IsPrivate(char32_t character) {
    return (character >= 0xE000 && character <= 0xF8FF) || character >= 0xF0000;
}

/// How many of the styles differ.
int32_t GetDistance(uint8_t flags, uint8_t others) {
    return ((flags ^ others) & MFontDescriptor::Bold ? 1 : 0) +
           ((flags ^ others) & MFontDescriptor::Italic ? 1 : 0);
}

MList<MFontDescriptor> Describe(const MList<MString>& paths) {
    MList<MFontDescriptor> fonts;
    for (const MString& path : paths) fonts.Add({path, path, false, false});
    return fonts;
}

}  // namespace

MFontSubstitutes::MFontSubstitutes(Source source, std::span<const char* const> preferredFamilies)
    : source(std::move(source)), preferredFamilies(preferredFamilies.begin(), preferredFamilies.end()) {}

MFontSubstitutes::MFontSubstitutes(const MList<MString>& paths)
    : MFontSubstitutes([paths] { return Describe(paths); }) {}

MFontSubstitutes::~MFontSubstitutes() = default;

MFontSubstitutes& MFontSubstitutes::GetInstance() {
    static MFontSubstitutes substitutes([] { return MSystemFonts::GetInstance().GetFonts(); }, UsualFamilies);
    return substitutes;
}

bool MFontSubstitutes::Render(char32_t character, uint8_t flags, double height, double width, MGlyph& glyph) {
    if (IsPrivate(character)) return false;
    const uint32_t key = character << 2 | (flags & 3u);
    const auto [entry, isNew] = found.try_emplace(key, nullptr);
    if (isNew) entry->second = Find(character, flags);
    Candidate* const candidate = entry->second;
    if (!candidate) return false;
    return MGuard("MFontSubstitutes::Render", [&] {
        Open(*candidate);
        candidate->face->SetSize(height, width);
        candidate->face->Render(character, glyph);
    });
}

void MFontSubstitutes::List() {
    isListed = true;
    auto others = static_cast<int32_t>(preferredFamilies.size());
    MString last;
    for (const MFontDescriptor& font : source()) {
        const auto isNamed = [&](const char* family) { return font.IsOfFamily(family); };
        const auto preferred = std::ranges::find_if(preferredFamilies, isNamed);
        Candidate& candidate = candidates.emplace_back();
        candidate.font = font;
        if (preferred == preferredFamilies.end() && !(font.GetFamily() == last)) ++others;
        candidate.family = preferred == preferredFamilies.end()
                               ? others
                               : static_cast<int32_t>(preferred - preferredFamilies.begin());
        last = font.GetFamily();
    }
    std::stable_sort(candidates.begin(), candidates.end(), [](const Candidate& left, const Candidate& right) {
        return left.family < right.family;
    });
}

MFontSubstitutes::Candidate* MFontSubstitutes::Find(char32_t character, uint8_t flags) {
    if (!isListed) List();
    for (auto first = candidates.begin(); first != candidates.end();) {
        const auto isOther = [&](const Candidate& candidate) { return candidate.family != first->family; };
        const auto end = std::find_if(first, candidates.end(), isOther);
        Candidate* best = nullptr;
        for (auto candidate = first; candidate != end; ++candidate) {
            const int32_t distance = GetDistance(candidate->font.GetFlags(), flags);
            if (best && distance >= GetDistance(best->font.GetFlags(), flags)) continue;
            if (HasCharacter(*candidate, character)) best = &*candidate;
        }
        if (best) return best;
        first = end;
    }
    return nullptr;
}

bool MFontSubstitutes::HasCharacter(Candidate& candidate, char32_t character) {
    if (!candidate.isRead) {
        candidate.isRead = true;
        MGuard("MFontSubstitutes::HasCharacter", [&] {
            Open(candidate);
            candidate.characters = candidate.face->GetCharacters();
        });
        // A machine may have more fonts than a program may have files open.
        candidate.face.reset();
        candidate.file.reset();
    }
    return candidate.characters.Contains(character);
}

void MFontSubstitutes::Open(Candidate& candidate) {
    if (candidate.face) return;
    auto file = std::make_unique<MStdFileStream>();
    file->Open(candidate.font.GetPath(), MOpenRead);
    candidate.face = std::make_unique<MFontFace>(*file);
    candidate.file = std::move(file);
}
