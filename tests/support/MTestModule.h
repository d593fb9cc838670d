#pragma once

#include "foundation/module/MModule.h"

/// The process-wide module of a test, as if `program` were the executable that runs.
class MTestModule final : public MModule {
public:
    explicit MTestModule(const MString& program) {
        FilePath = program;
        SetInstance(this);
    }
    ~MTestModule() noexcept override = default;
};
