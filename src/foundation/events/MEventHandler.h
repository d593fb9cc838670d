#pragma once

#include "foundation/events/MEventTarget.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// A method bound to its object: the target, the method as a pair of words, and a stub that knows the types
/// of both. The target is not owned.
template <class Params>
class MEventHandler {
public:
    template <class Target>
    using Method = void (Target::*)(const Params&);

    template <class Target>
    MEventHandler(Target* target, Method<Target> method) : target(target), stub(&Call<Target>) {
        static_assert(std::is_base_of_v<MEventTarget, Target>);
        static_assert(sizeof(method) <= sizeof(words));
        std::memcpy(words.data(), &method, sizeof(method));
    }

    [[nodiscard]] MEventTarget* GetTarget() const { return target; }
    void operator()(const Params& params) const { stub(*this, params); }

private:
    using Words = std::array<uintptr_t, 2>;

    template <class Target>
    static void Call(const MEventHandler& handler, const Params& params) {
        Method<Target> method = nullptr;
        std::memcpy(&method, handler.words.data(), sizeof(method));
        (static_cast<Target*>(handler.target)->*method)(params);
    }

    MEventTarget* target;
    Words words{};
    void (*stub)(const MEventHandler&, const Params&);
};
