#pragma once

#include "builder/output/MBuilderOutput.h"
#include "builder/reports/MPayloadFile.h"
#include "builder/reports/MPayloadItem.h"

#include <set>
#include <utility>

/// Reads every item of a payload to the end of its stream, and compares sizes, check sums and, where it is
/// there, the companion with the digest of the whole file.
class MPayloadVerifier {
public:
    /// The file and the output outlive the object.
    MPayloadVerifier(MPayloadFile& file, MBuilderOutput& output);

    /// Tells what is bad, each item on a line, and true if nothing is.
    [[nodiscard]] bool Run();

private:
    [[nodiscard]] bool VerifyItem(const MPayloadItem& item);
    /// Raises what is wrong with an item.
    void ReadItem(int64_t start, int64_t size);
    [[nodiscard]] bool VerifyCompanion();

    MPayloadFile& file;
    MBuilderOutput& output;
    MBuffer buffer;
    /// Start and size of those that are good: many elements may share one.
    std::set<std::pair<int64_t, int64_t>> good;
};
