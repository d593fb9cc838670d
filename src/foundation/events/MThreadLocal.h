#pragma once

#include "foundation/base/MObject.h"

#include <cstdint>

/// One word of storage per thread, null in every thread at first. What it points at is not owned.
class MThreadLocal final : public MObject {
public:
    /// Raises "Could not create thread local storage." (0).
    MThreadLocal();
    MThreadLocal(const MThreadLocal&) = delete;
    MThreadLocal& operator=(const MThreadLocal&) = delete;
    ~MThreadLocal() override;

    [[nodiscard]] void* Get() const;
    void Set(void* value) const;

private:
    uint32_t slot = 0;
};
