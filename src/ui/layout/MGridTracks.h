#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// The columns of a grid, or its rows.
class MGridTracks final {
public:
    struct Track {
        int32_t minimal = 0;  ///< the least that it has to be long
        int32_t weight =
            0;  ///< its part of what is left over; 0 for a track that stays as long as it has to be
        int32_t length = 0;   ///< as long as it is
        bool isUsed = false;  ///< one that is not has no gap either
    };

    MGridTracks(int32_t count, int32_t gap) : tracks(static_cast<size_t>(count)), gap(gap) {}

    [[nodiscard]] int32_t GetCount() const { return static_cast<int32_t>(tracks.size()); }
    [[nodiscard]] Track& operator[](int32_t index) { return tracks[static_cast<size_t>(index)]; }
    [[nodiscard]] const Track& operator[](int32_t index) const { return tracks[static_cast<size_t>(index)]; }
    [[nodiscard]] bool HasWeight() const;

    /// Makes neighbouring tracks together, with the gaps between them, at least so long. Those with a weight
    /// grow by their weights; without any all grow alike, and the first one takes what division leaves.
    void RaiseSpan(int32_t first, int32_t count, int32_t needed);
    /// All tracks and gaps, so that each track gets what it needs when `Share` shares this.
    [[nodiscard]] int32_t GetNeeded() const;
    /// Sets the lengths: what is left of a length goes to the tracks that have a weight.
    void Share(int32_t length);
    /// Of neighbouring tracks with the gaps between them, after `Share`.
    [[nodiscard]] int32_t GetSpanLength(int32_t first, int32_t count) const;
    /// Where each track begins, after `Share`, if the first one begins at 0; and last where one more would.
    [[nodiscard]] std::vector<int64_t> GetPlaces() const;

private:
    /// All tracks without weight, and the gaps.
    [[nodiscard]] int64_t GetFixedLength() const;

    std::vector<Track> tracks;
    int32_t gap;
};
