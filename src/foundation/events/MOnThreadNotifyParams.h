#pragma once

class MThread;

/// `thread` has started or finished; it is not owned.
struct MOnThreadNotifyParams {
    MThread* thread = nullptr;
};
