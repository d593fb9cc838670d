#pragma once

#include "foundation/base/MHashTable.h"
#include "foundation/text/encodings/MEncoding.h"
#include "foundation/text/encodings/MEncodingTables.h"

#include <mutex>

/// An 8-bit character set. A unit that the set does not have is dropped.
class MEncoding::TableCodec final : public MEncoding::Codec {
public:
    explicit TableCodec(const MEncodingTable& table) : table(table) {}

    using Codec::Decode;
    [[nodiscard]] MString GetName() const override { return table.names[0]; }
    [[nodiscard]] MString Decode(std::string_view bytes) const override;
    [[nodiscard]] MCHARBuffer Encode(const MString& text, bool terminate) const override;

private:
    using ReverseMap = MHashTable<uint32_t, char>;

    const MEncodingTable& table;
    mutable std::once_flag isReverseMapMade;
    mutable ReverseMap reverseMap;  ///< from unit to byte; made at the first encoding
};
