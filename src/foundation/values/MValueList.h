#pragma once

#include "foundation/values/MValueChoice.h"
#include "foundation/values/MValueHolder.h"

#include <cstdint>

/// One of a list of names that is given at run time. `List` is anything whose [] gives a `Text`, such as a
/// pointer to the first name; the list is borrowed and must outlive its use here.
template <class Text, class List, class Index>
class MValueList final : public MValueChoice {
public:
    MValueList() = default;
    MValueList(const MString& id, List list, Index count) : MValueChoice(id), list(list), count(count) {}

    [[nodiscard]] Index Get() const { return holder.Get(); }
    /// Replaces the names. The index stays if it can.
    void SetList(List newList, Index newCount) {
        list = newList;
        count = newCount;
        OnRangeChange();
        Validate();
    }
    /// Works on an outside variable from now on, which must outlive the binding; null ends it.
    void Bind(Index* variable) { holder.Bind(variable); }

protected:
    [[nodiscard]] int32_t GetNameCount() const override { return static_cast<int32_t>(count); }
    [[nodiscard]] MString GetName(int32_t index) const override {
        const Text& text = list[index];
        return text;
    }
    [[nodiscard]] int32_t GetStoredIndex() const override { return static_cast<int32_t>(Get()); }
    void StoreIndex(int32_t index) override { holder.Set(static_cast<Index>(index)); }

private:
    List list{};
    Index count{};
    MValueHolder<Index> holder;
};

using MValueNameList = MValueList<const char*, const char* const*, int32_t>;
