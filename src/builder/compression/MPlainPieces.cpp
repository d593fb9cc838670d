#include "builder/compression/MPlainPieces.h"

namespace {

class PlainJoiner final : public MPieceJoiner {
public:
    void Add(const MPiece& piece, MStream& target) override {
        target.Write(piece.plain.data(), static_cast<int32_t>(piece.plain.size()));
    }
};

}  // namespace

std::unique_ptr<MPieceMeter> MPlainPieces::MakeMeter() const {
    return std::make_unique<MFixedPieceMeter>(PieceSize);
}

std::unique_ptr<MPieceJoiner> MPlainPieces::MakeJoiner() const {
    return std::make_unique<PlainJoiner>();
}
