#include "bench/MComparison.h"
#include "foundation/text/encodings/MEncoding.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MTestDrawer.h"
#include "ui/stml/MSTML.h"
#include "ui/text/MTextLayout.h"

#include <vector>

namespace {

constexpr int Rounds = 41;
constexpr int DocumentsPerRound = 4;
constexpr int32_t Width = 700;
constexpr int32_t OtherWidth = 610;
constexpr const char* Fonts = "/usr/share/fonts/truetype";

/// Remembers the glyphs that are painted, if it shall.
class Recorder final : public MTestDrawer {
public:
    using MTestDrawer::MTestDrawer;

    void PaintGlyph(const MPlacedGlyph& glyph, MColor color) override {
        if (isRecording) glyphs.push_back({glyph, color});
        MTestDrawer::PaintGlyph(glyph, color);
    }

    struct Painted {
        MPlacedGlyph glyph;
        MColor color;
    };
    std::vector<Painted> glyphs;
    bool isRecording = true;
};

MString LoadText() {
    MStdFileStream file;
    file.Open(BENCHMARK_TEXT, MOpenRead);
    std::string bytes(static_cast<size_t>(file.GetSize()), ' ');
    (void)file.Read(bytes.data(), static_cast<int32_t>(bytes.size()));
    return MEncoding::GetUTF8Codec().Decode(bytes);
}

/// The work against the masks of the text's letters alone.
class Subject {
public:
    Subject() : drawer(Fonts), text(LoadText()), document(text) {
        bitmap.CreateOpaque(Width, document.Measure(drawer, Width));
        drawer.SetBitmap(&bitmap);
        document.Paint(drawer, bitmap.GetRect(), false);
        drawer.isRecording = false;
    }

    void PaintMasks() {
        for (const auto& [glyph, color] : drawer.glyphs)
            drawer.AlphaMask(glyph.mask->GetRect(), *glyph.mask, glyph.point, color, MDrawMode::Alphablend);
    }
    void PaintAnew() {
        document.Parse(text);
        (void)document.Measure(drawer, Width);
        document.Paint(drawer, bitmap.GetRect(), false);
    }
    void Rewrap() {
        (void)document.Measure(drawer, isWide ? OtherWidth : Width);
        isWide = !isWide;
    }
    [[nodiscard]] std::string GetNote() const {
        return "; ours are the masks of " + std::to_string(drawer.glyphs.size()) + " letters alone";
    }

private:
    MBitmap bitmap;
    Recorder drawer;
    MString text;
    MSTML document;
    bool isWide = true;
};

MComparison Compare(void (Subject::*work)(), double goal) {
    Subject subject;
    const auto repeat = [&](void (Subject::*one)()) {
        return [&subject, one] {
            for (int i = 0; i < DocumentsPerRound; ++i) (subject.*one)();
        };
    };
    MComparison comparison = MCompareSpeeds(Rounds, MClock::Processor, DocumentsPerRound,
                                            {{}, repeat(&Subject::PaintMasks)}, {{}, repeat(work)});
    comparison.unit = "documents/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = goal;
    comparison.note += subject.GetNote();
    return comparison;
}

[[maybe_unused]] const bool isRegistered =
    MRegisterComparison("STML, parsed, measured and painted",
                        [] { return Compare(&Subject::PaintAnew, 2); }) &&
    MRegisterComparison("STML, wrapped anew", [] { return Compare(&Subject::Rewrap, 0.5); });

}  // namespace
