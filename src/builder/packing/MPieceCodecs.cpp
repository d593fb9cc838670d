#include "builder/packing/MPieceCodecs.h"

#include "builder/compression/MBzip2Pieces.h"
#include "builder/compression/MPlainPieces.h"
#include "builder/compression/MZLibPieces.h"

std::unique_ptr<MPieceCodec> MMakePieceCodec(const MBuilderOptions& options) {
    switch (options.compression) {
    case MCompression::ZLib: return std::make_unique<MZLibPieces>(options.level);
    case MCompression::None: return std::make_unique<MPlainPieces>();
    default: return std::make_unique<MBzip2Pieces>(options.level);
    }
}
