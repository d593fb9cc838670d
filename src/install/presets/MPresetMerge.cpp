#include "install/presets/MPresetMerge.h"

#include "foundation/xml/MXMLSubItems.h"

#include <string>
#include <unordered_map>

namespace {

/// The sub-items of one name by the value of one attribute, under the equality of `MString`. It is a picture
/// of the moment: sub-items that are added later are not found. No item is owned.
class ItemsByKey {
public:
    /// A sub-item without the attribute has the empty key.
    ItemsByKey(const MXMLItem& parent, const MString& itemName, const MString& attribute) {
        for (MXMLItem& item : MXMLSubItems(parent, itemName))
            items.emplace(Fold(item.GetAttribute(attribute, "")), &item);
    }

    /// Null if there is none; of several the first.
    [[nodiscard]] MXMLItem* Find(const MString& key) const {
        const auto found = items.find(Fold(key));
        return found == items.end() ? nullptr : found->second;
    }

private:
    /// Keys that are equal as `MString` are the same text in this form.
    static std::u16string Fold(const MString& key) {
        std::u16string folded(static_cast<size_t>(key.GetLength()), u'\0');
        for (int32_t i = 0; i < key.GetLength(); ++i)
            folded[static_cast<size_t>(i)] = static_cast<char16_t>(key[i].FoldDiacritics().ToLower());
        return folded;
    }

    std::unordered_map<std::u16string, MXMLItem*> items;
};

void ReplacePreset(MXMLItem& existing, MXMLItem& preset) {
    if (!preset.HasAttribute("compressed")) {
        existing.CopyFrom(preset);
        return;
    }
    existing.RemoveAllSubItems();
    existing.SetAttribute("compressed", "1");
    existing.SetValue(preset.GetValue());
}

}  // namespace

int32_t MergePresets(MXMLItem& target, MXMLItem& source, int32_t exchangeIndex, int32_t mode,
                     bool categorize) {
    int32_t count = 0;
    const ItemsByKey presets(target, "preset", "name");
    for (MXMLItem& preset : MXMLSubItems(source, "preset")) {
        MXMLItem* merged = mode == MMergeAdd ? nullptr : presets.Find(preset.GetAttribute("name", ""));
        if (merged && mode == MMergeKeep) continue;
        if (merged) {
            ReplacePreset(*merged, preset);
        } else {
            merged = target.AddSubItem("preset");
            merged->CopyFrom(preset);
        }
        if (exchangeIndex >= 0) merged->SetAttribute("ExchangeIndex", exchangeIndex);
        ++count;
    }

    const ItemsByKey folders(target, "Directory", "Name");
    for (MXMLItem& folder : MXMLSubItems(source, "Directory")) {
        const MString category =
            categorize ? MFindPresetCategory(folder.GetAttribute("Name", "")) : MString();
        if (!category.IsEmpty()) folder.SetAttribute("Name", category);
        if (MXMLItem* const existing = folders.Find(folder.GetAttribute("Name", ""))) {
            count += MergePresets(*existing, folder, exchangeIndex, mode, categorize);
            continue;
        }
        MXMLItem& added = *target.AddSubItem("Directory");
        added.CopyFrom(folder);
        count += exchangeIndex >= 0 ? AssignExchangeIndex(added, true, MNumberToText(exchangeIndex))
                                    : added.CountSubItems("preset");
    }
    return count;
}

int32_t AssignExchangeIndex(MXMLItem& item, bool overwrite, const MString& index) {
    int32_t count = 0;
    for (MXMLItem& preset : MXMLSubItems(item, "preset")) {
        if (!overwrite && preset.HasAttribute("ExchangeIndex")) continue;
        preset.SetAttribute("ExchangeIndex", index);
        ++count;
    }
    for (MXMLItem& folder : MXMLSubItems(item, "Directory"))
        count += AssignExchangeIndex(folder, overwrite, index);
    return count;
}

MString MFindPresetCategory(const MString& folderName) {
    struct Row {
        const char* word;
        const char* category;
    };
    static constexpr Row rows[] = {
        {"drum", "Drums"},    {"arp", "Arp"},     {"bass", "Bass"},       {"fx", "FX"},
        {"effect", "FX"},     {"pad", "Pad"},     {"lead", "Lead"},       {"key", "Keyboards"},
        {"organ", "Organ"},   {"bell", "Bells"},  {"perc", "Percussive"}, {"bass", "Bass"},
        {"pluck", "Pluck"},   {"syn", "Synth"},   {"brass", "Brass"},     {"gato", "Gator"},
        {"seq", "Sequences"}, {"dron", "Drones"}, {"string", "Strings"},
    };
    for (const Row& row : rows)
        if (folderName.Contains(row.word)) return row.category;
    return MString();
}
