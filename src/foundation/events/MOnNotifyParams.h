#pragma once

class MObject;

/// Something about `sender` has changed; it is not owned.
struct MOnNotifyParams {
    MObject* sender = nullptr;
};
