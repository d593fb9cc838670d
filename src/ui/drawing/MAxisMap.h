#pragma once

#include <cstdint>

/// Where the pixels of a picture go along one axis: which pixel of the source a pixel of the destination
/// shows.
class MAxisMap {
public:
    /// One to one; what lies outside of the source is not painted.
    [[nodiscard]] static MAxisMap Straight(int32_t target, int32_t source, int32_t length);
    /// `length` pixels in a circle, beginning `phase` pixels into the source; `phase` may be negative.
    [[nodiscard]] static MAxisMap Tiled(int32_t target, int32_t targetLength, int32_t source, int32_t length,
                                        int32_t phase);
    /// The nearest pixel, by steps of 16.16 fixed point; all pixels lie within the source.
    [[nodiscard]] static MAxisMap Scaled(int32_t target, int32_t targetLength, int32_t source,
                                         int32_t length);

    [[nodiscard]] bool IsScaled() const { return step != OneToOne; }
    /// How many pixels of the source there are.
    [[nodiscard]] int32_t GetLength() const { return length; }
    /// The pixel of the source for a pixel of the destination.
    [[nodiscard]] int32_t GetSource(int32_t target) const;
    /// As `GetSource`, in 16.16 fixed point from the beginning of the axis.
    [[nodiscard]] int64_t GetPosition(int32_t target) const;
    [[nodiscard]] uint32_t GetStep() const { return static_cast<uint32_t>(step); }
    /// How many pixels of the source follow without a jump from that of `target` on.
    [[nodiscard]] int32_t GetRunLength(int32_t target) const;

    /// The first and the last pixel of the destination that this maps.
    [[nodiscard]] int32_t GetFirst() const { return first; }
    [[nodiscard]] int32_t GetLast() const { return first + count - 1; }

private:
    static constexpr int64_t OneToOne = 0x10000;

    MAxisMap(int32_t first, int32_t count, int32_t source, int32_t length, int32_t phase, int64_t step)
        : first(first), count(count), source(source), length(length), phase(phase), step(step) {}

    int32_t first;
    int32_t count;
    int32_t source;
    int32_t length;
    int32_t phase;
    int64_t step;
};
