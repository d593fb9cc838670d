#include "install/presets/MPresetMerge.h"

#include "foundation/xml/MXMLSubItems.h"
#include "install/presets/MKeyedItems.h"

namespace {

void Stamp(MXMLItem& preset, int32_t exchangeIndex) {
    if (exchangeIndex >= 0) preset.SetAttribute("ExchangeIndex", exchangeIndex);
}

void ReplacePreset(MXMLItem& existing, MXMLItem& preset) {
    if (!preset.HasAttribute("compressed")) {
        existing.CopyFrom(preset);
        return;
    }
    existing.RemoveAllSubItems();
    existing.SetAttribute("compressed", "1");
    existing.SetValue(preset.GetValue());
}

int32_t MergePresetsOfLevel(MXMLItem& target, const MXMLItem& source, int32_t exchangeIndex, int32_t mode) {
    const MKeyedItems presets(target, "preset", "name");
    int32_t count = 0;
    for (MXMLItem& preset : MXMLSubItems(source, "preset")) {
        MXMLItem* existing = mode == MMergeAdd ? nullptr : presets.Find(preset.GetAttribute("name", ""));
        if (existing && mode == MMergeKeep) continue;
        if (existing) {
            ReplacePreset(*existing, preset);
        } else {
            existing = target.AddSubItem("preset");
            existing->CopyFrom(preset);
        }
        Stamp(*existing, exchangeIndex);
        ++count;
    }
    return count;
}

void Categorize(MXMLItem& folder) {
    const MString category = MFindPresetCategory(folder.GetAttribute("Name", ""));
    if (!category.IsEmpty()) folder.SetAttribute("Name", category);
}

int32_t AddFolder(MXMLItem& target, const MXMLItem& folder, int32_t exchangeIndex) {
    MXMLItem& added = *target.AddSubItem("Directory");
    added.CopyFrom(folder);
    return exchangeIndex >= 0 ? AssignExchangeIndex(added, true, MNumberToText(exchangeIndex))
                              : added.CountSubItems("preset");
}

}  // namespace

int32_t MergePresets(MXMLItem& target, MXMLItem& source, int32_t exchangeIndex, int32_t mode,
                     bool categorize) {
    int32_t count = MergePresetsOfLevel(target, source, exchangeIndex, mode);
    const MKeyedItems folders(target, "Directory", "Name");
    for (MXMLItem& folder : MXMLSubItems(source, "Directory")) {
        if (categorize) Categorize(folder);
        MXMLItem* const existing = folders.Find(folder.GetAttribute("Name", ""));
        count += existing ? MergePresets(*existing, folder, exchangeIndex, mode, categorize)
                          : AddFolder(target, folder, exchangeIndex);
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
