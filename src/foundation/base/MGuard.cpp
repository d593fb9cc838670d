#include "foundation/base/MGuard.h"

#include "foundation/base/MRaise.h"

namespace {

void WriteDiagnostics([[maybe_unused]] const MString& text) {}

}  // namespace

void MReportSystemException(const char* label) {
    WriteDiagnostics(MFormat("SYSTEM EXCEPTION! {0}", label));
}
