#include "ui/image/pixels/MPixelRows.h"

#include "ui/image/pixels/MPixelRowSets.h"

namespace {

constexpr MPixelRows EmptyRows = {
    [](MColor*, const MColor*, int32_t, uint8_t) {},
    [](MColor*, int32_t, MColor) {},
    [](MColor*, const uint8_t*, int32_t, MColor) {},
    [](MColor*, const MColor*, uint32_t, uint32_t, int32_t, uint8_t) {},
};

const MPixelRowSet& GetSet(MPixelForm form) {
    switch (form) {
    case MPixelForm::AVX2: return MPixelRowsAVX2;
    case MPixelForm::SSE2: return MPixelRowsSSE2;
    case MPixelForm::Plain: break;
    }
    return MPixelRowsPlain;
}

}  // namespace

bool MHasPixelForm(MPixelForm form) {
    static const bool hasAVX2 = __builtin_cpu_supports("avx2");
    return form != MPixelForm::AVX2 || hasAVX2;
}

const MPixelRows& MGetPixelRows(MColorOp operation) {
    return MGetPixelRows(operation, MHasPixelForm(MPixelForm::AVX2) ? MPixelForm::AVX2 : MPixelForm::SSE2);
}

const MPixelRows& MGetPixelRows(MColorOp operation, MPixelForm form) {
    const auto index = static_cast<size_t>(operation);
    if (operation == MColorOp::None || index >= MPixelRowsPlain.size()) return EmptyRows;
    return GetSet(form)[index];
}
