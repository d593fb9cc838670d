#pragma once

#include "streams/basic/MStream.h"

#include <cstdint>
#include <vector>

/// Puts bits one behind the other, the highest of a byte first.
class MBitWriter {
public:
    /// The low `count` bits of a value, at most 64.
    void Append(uint64_t value, int32_t count);
    /// The first `count` bits of a block.
    void Append(const std::vector<uint8_t>& bytes, uint64_t count);
    /// Fills the last byte with zeros.
    void Pad();
    /// Writes the whole bytes and keeps the bits behind them.
    void WriteTo(MStream& target);

private:
    std::vector<uint8_t> whole;
    /// The bits of a byte that is not yet whole stand at its top; below them it is 0.
    uint32_t open = 0;
    int32_t openCount = 0;
};
