#include "update/MMirrors.h"

#include "foundation/base/MDateTime.h"
#include "foundation/base/MException.h"
#include "foundation/base/MLinearRandom.h"
#include "foundation/module/MPlatform.h"
#include "streams/hashes/MMD5Text.h"
#include "update/MHTTPBody.h"

#include <algorithm>
#include <optional>

void MMirrors::ChooseFirst() {
    MLinearRandom random(static_cast<uint32_t>(MDateTime::NowUTC().GetMicroseconds() / 1000));
    current = static_cast<int32_t>(random.Next()) % addresses.GetCount();
}

bool MMirrors::FetchIndex(MDownloadIndex& index) {
    constexpr int32_t RedirectBudget = 10;
    constexpr int64_t MaximumStoredSize = 0x4000000;
    std::optional<MException> refusal;
    for (int32_t i = 0; i < addresses.GetCount() && !IsCancelled(); ++i) {
        try {
            const bool isLast = i + 1 == addresses.GetCount();
            MMemoryStream stored;
            if (!Request(addresses[i] + MDownloadIndex::FileName, RedirectBudget, MaximumStoredSize, isLast,
                         stored))
                continue;
            stored.Rewind();
            index.Load(stored);
        } catch (const MException&) {
            // As a mirror that has none: the next may have one.
            continue;
        }
        try {
            index.ForgetProgress();
            index.Check();
            return true;
        } catch (const MException& exception) {
            refusal = exception;
        }
    }
    if (refusal && !IsCancelled()) throw MException(*refusal);
    return false;
}

bool MMirrors::FetchPart(const MString& name, const MString& digest, int64_t limit, MMemoryStream& part) {
    for (int32_t tries = 1; !IsCancelled(); ++tries) {
        try {
            const bool isOnly = addresses.GetCount() == 1;
            if (Request(addresses[current] + name, 0, std::min(limit, MaximumPartSize), isOnly, part) &&
                MMD5OfBlock(part.GetBuffer().GetBlock(), static_cast<int32_t>(part.GetSize())) == digest)
                return true;
        } catch (const MException&) {
            // As a part with a wrong digest: the next mirror may do better.
        }
        current = (current + 1) % addresses.GetCount();
        if (tries == TriesPerPart) break;
        if (tries % addresses.GetCount() == 0) Pause();
    }
    return false;
}

bool MMirrors::Request(const MString& url, int32_t redirectBudget, int64_t limit, bool isLast,
                       MMemoryStream& body) {
    MHTTPStream request;
    request.SetWatcher([this, isLast](std::chrono::steady_clock::duration quiet) {
        return !IsCancelled() && (isLast || quiet < quietLimit);
    });
    request.Get(url);
    if (!request.Send(redirectBudget)) return false;
    body.Reset();
    MReadHTTPBody(request, body, limit);
    return true;
}

void MMirrors::Pause(int32_t milliseconds) {
    constexpr int32_t Slice = 50;
    for (int32_t waited = 0; waited < milliseconds && !IsCancelled(); waited += Slice)
        MPlatform::Sleep(Slice);
}

bool MMirrors::IsCancelled() {
    isCancelled = isCancelled || view.IsCancelled();
    return isCancelled;
}
