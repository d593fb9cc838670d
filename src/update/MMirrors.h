#pragma once

#include "streams/basic/MMemoryStream.h"
#include "update/MDownloadDefinition.h"
#include "update/MDownloadIndex.h"
#include "update/MDownloadView.h"

#include <chrono>

/// The servers that a package comes from. Whatever fails on one is asked of the next. While a request or a
/// pause waits, the view is asked whether the user has cancelled; a request or pause is then over at once.
class MMirrors {
public:
    /// The definition, which has one mirror or more, and the view outlive it.
    MMirrors(const MDownloadDefinition& definition, MDownloadView& view)
        : addresses(definition.GetMirrors()), view(view) {}

    /// Parts come from a mirror chosen by chance, so that all users together load all mirrors alike.
    void ChooseFirst();
    /// Fetches the list, without progress, from the first mirror that has one which can be used. False if the user has
    /// cancelled, or if none has any; raises what `MDownloadIndex::Check` raises if those that there are cannot be
    /// used.
    [[nodiscard]] bool FetchIndex(MDownloadIndex& index);
    /// Fetches a part by its name on the mirrors. False if the user has cancelled, or if it could not be had
    /// in `TriesPerPart` tries.
    [[nodiscard]] bool FetchPart(const MString& name, const MString& digest, int64_t limit,
                                 MMemoryStream& part);
    /// Between rounds: for what has failed everywhere just now.
    void Pause(int32_t milliseconds = PauseMilliseconds);
    /// Stays true once it is.
    [[nodiscard]] bool IsCancelled();

    static constexpr int32_t TriesPerPart = 10;
    static constexpr int32_t PauseMilliseconds = 250;
    /// No part of a set has more bytes.
    static constexpr int64_t MaximumPartSize = 0x10000000;

    /// A mirror that sends nothing for so long has failed, if there is another one.
    std::chrono::steady_clock::duration quietLimit = std::chrono::minutes(1);

private:
    /// False if the server refuses. Raises what `MHTTPStream` and `MReadHTTPBody` raise.
    [[nodiscard]] bool Request(const MString& url, int32_t redirectBudget, int64_t limit, bool isLast,
                               MMemoryStream& body);

    const MList<MString>& addresses;
    MDownloadView& view;
    int32_t current = 0;  ///< the one that parts come from
    bool isCancelled = false;
};
