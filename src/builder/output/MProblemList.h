#pragma once

#include "builder/output/MBuilderOutput.h"
#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// What is wrong in a definition, each with its line.
class MProblemList {
public:
    /// The text says what is wrong and what to do. Lines count from 1.
    void AddError(int32_t line, const MString& text);
    void AddWarning(int32_t line, const MString& text);

    [[nodiscard]] int32_t GetErrorCount() const { return errorCount; }
    [[nodiscard]] int32_t GetWarningCount() const { return problems.GetCount() - errorCount; }
    /// Writes "file:line: error: text" for each, in the order of lines.
    void Print(const MString& file, MBuilderOutput& output) const;

private:
    enum class Severity { Warning, Error };
    struct Problem {
        int32_t line = 0;
        Severity severity = Severity::Error;
        MString text;
    };

    MList<Problem> problems;
    int32_t errorCount = 0;
};
