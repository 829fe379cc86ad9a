#include "supply/cylinder_sets.h"

#include <array>

#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/cylinder_line.h"

namespace tav {
namespace {

constexpr std::array<UsualCylinder, 18> kUsual{{
    {"3 l", 1, 3, 0, 200, 20},
    {"7 l", 1, 7, 0, 200, 20},
    {"S40 (5.7 l)", 1, 5.7, 0, 207, 20},
    {"S80 (11.1 l)", 1, 11.1, 0, 207, 20},
    {"10 l", 1, 10, 0, 200, 50},
    {"12 l", 1, 12, 0, 200, 50},
    {"15 l", 1, 15, 0, 200, 50},
    {"D7 (2 x 7 l)", 2, 7, 0, 200, 50},
    {"D12 (2 x 12 l)", 2, 12, 0, 200, 50},
    {"D18 (2 x 18 l)", 2, 18, 0, 200, 50},
    {"AL40 (40 cu ft)", 1, 40, 3000, 3000, 300},
    {"AL80 (77.4 cu ft)", 1, 77.4, 3000, 3000, 500},
    {"LP85", 1, 85, 2640, 2640, 500},
    {"LP104", 1, 104, 2640, 2640, 500},
    {"HP100", 1, 100, 3442, 3442, 500},
    {"HP120", 1, 120, 3442, 3442, 500},
    {"2 x LP85", 2, 85, 2640, 2640, 700},
    {"2 x HP100", 2, 100, 3442, 3442, 700},
}};

/// Places in `kUsual`.
struct Rig {
  std::size_t twinset;
  std::size_t single;
  std::size_t small;
  std::size_t large;
};
constexpr Rig kMetric{8, 6, 2, 3};
constexpr Rig kImperial{16, 14, 10, 11};

const std::string kSection = "CylinderSets";
std::string NameKey(int entry) { return "Set" + std::to_string(entry); }
std::string CylinderKey(int entry) { return "Cylinder" + std::to_string(entry); }

}  // namespace

std::span<const UsualCylinder> UsualCylinders() { return kUsual; }

std::size_t UsualCylinderOf(bool metric) { return metric ? kMetric.twinset : kImperial.large; }

std::vector<CylinderSet> UsualSets(bool metric) {
  const Rig& rig = metric ? kMetric : kImperial;
  const auto of = [](std::size_t kind, const char* gas) { return kUsual.at(kind).With(gas); };
  std::vector<CylinderSet> sets{
      {Message(Text::SetOfTwinset), {of(rig.twinset, ""), of(rig.large, "EAN50"), of(rig.small, "Oxygen")}},
      {Message(Text::SetOfSingle), {of(rig.single, ""), of(rig.small, "EAN50")}},
      {Message(Text::SetOfBailOut), {of(rig.large, ""), of(rig.large, "EAN50")}}};
  for (Cylinder& cylinder : sets.back().cylinders) cylinder.BailOut = true;
  return sets;
}

std::vector<CylinderSet> ReadCylinderSets(const SettingsStore& settings, Message& fault) {
  std::vector<CylinderSet> sets;
  for (int entry = 1;; ++entry) {
    const std::string name(TrimBlanks(settings.ReadSetting(kSection, NameKey(entry))));
    const std::string line = settings.ReadSetting(kSection, CylinderKey(entry));
    if (name.empty() && line.empty()) return sets;
    Cylinder cylinder;
    const Message broken = name.empty() ? Message(Text::CylinderSetNoName) : ReadCylinderLine(line, cylinder);
    if (!broken.IsEmpty()) {
      if (fault.IsEmpty()) fault = {Text::CylinderSetsBroken, {std::to_string(entry), broken}};
      continue;
    }
    if (sets.empty() || sets.back().name.plain != name) sets.push_back({name, {}});
    sets.back().cylinders.push_back(std::move(cylinder));
  }
}

void WriteCylinderSets(SettingsStore& settings, const std::vector<CylinderSet>& sets) {
  int entry = 0;
  const auto write = [&](const std::string& name, const std::string& line) {
    ++entry;
    settings.WriteSetting(kSection, NameKey(entry), name);
    settings.WriteSetting(kSection, CylinderKey(entry), line);
  };
  for (const CylinderSet& set : sets) {
    for (const Cylinder& cylinder : set.cylinders) write(set.name.plain, WriteCylinderLine(cylinder));
  }
  write("", "");  // the end of them
}

}  // namespace tav
