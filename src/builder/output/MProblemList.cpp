#include "builder/output/MProblemList.h"

#include "foundation/text/MStringFormatter.h"

#include <algorithm>

void MProblemList::AddError(int32_t line, const MString& text) {
    problems.Add({line, Severity::Error, text});
    ++errorCount;
}

void MProblemList::AddWarning(int32_t line, const MString& text) {
    problems.Add({line, Severity::Warning, text});
}

void MProblemList::Print(const MString& file, MBuilderOutput& output) const {
    MList<Problem> sorted = problems;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Problem& left, const Problem& right) { return left.line < right.line; });
    for (const Problem& problem : sorted) {
        const char* severity = problem.severity == Severity::Error ? "error" : "warning";
        output.Complain(MFormat("{0}:{1}: {2}: {3}", file, problem.line, severity, problem.text));
    }
}
