#include "ui/layout/MGridTracks.h"

#include "ui/geometry/MLength.h"
#include "ui/layout/MWeightShares.h"

#include <algorithm>
#include <span>

namespace {

int64_t SumWeights(std::span<const MGridTracks::Track> tracks) {
    int64_t weights = 0;
    for (const MGridTracks::Track& track : tracks) weights += track.weight;
    return weights;
}

}  // namespace

bool MGridTracks::HasWeight() const {
    return std::any_of(tracks.begin(), tracks.end(), [](const Track& track) { return track.weight > 0; });
}

void MGridTracks::RaiseSpan(int32_t first, int32_t count, int32_t needed) {
    const auto spanned = std::span(tracks).subspan(static_cast<size_t>(first), static_cast<size_t>(count));
    int64_t all = int64_t{gap} * (count - 1);
    int64_t fixed = all;
    for (Track& track : spanned) {
        track.isUsed = true;
        all += track.minimal;
        if (track.weight == 0) fixed += track.minimal;
    }
    if (all >= needed) return;

    if (const int64_t weights = SumWeights(spanned); weights > 0) {
        MWeightShares shares(needed - fixed, weights);
        for (Track& track : spanned)
            if (track.weight > 0) track.minimal = std::max(track.minimal, shares.Take(track.weight));
        return;
    }
    const auto difference = static_cast<int32_t>(needed - all);
    for (Track& track : spanned) track.minimal = MClampLength(int64_t{track.minimal} + difference / count);
    spanned[0].minimal = MClampLength(int64_t{spanned[0].minimal} + difference % count);
}

int32_t MGridTracks::GetNeeded() const {
    const int64_t weights = SumWeights(tracks);
    int64_t shared = 0;
    for (const Track& track : tracks)
        if (track.weight > 0)
            shared = std::max(shared, MWeightShares::GetLengthFor(track.minimal, track.weight, weights));
    return MClampLength(GetFixedLength() + shared);
}

void MGridTracks::Share(int32_t length) {
    MWeightShares shares(length - GetFixedLength(), SumWeights(tracks));
    for (Track& track : tracks)
        track.length = track.weight > 0 ? shares.Take(track.weight, track.minimal) : track.minimal;
}

int32_t MGridTracks::GetSpanLength(int32_t first, int32_t count) const {
    int64_t length = 0;
    int32_t used = 0;
    for (int32_t index = first; index < first + count; ++index) {
        length += (*this)[index].length;
        if ((*this)[index].isUsed) ++used;
    }
    return MClampLength(length + int64_t{gap} * std::max(used - 1, 0));
}

std::vector<int64_t> MGridTracks::GetPlaces() const {
    std::vector<int64_t> places{0};
    for (const Track& track : tracks)
        places.push_back(places.back() + track.length + (track.isUsed ? gap : 0));
    return places;
}

int64_t MGridTracks::GetFixedLength() const {
    int64_t length = 0;
    int64_t used = 0;
    for (const Track& track : tracks) {
        if (track.weight == 0) length += track.minimal;
        if (track.isUsed) ++used;
    }
    return length + int64_t{gap} * std::max<int64_t>(used - 1, 0);
}
