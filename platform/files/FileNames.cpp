// SPDX-License-Identifier: MIT
#include "platform/files/FileNames.h"

#include <algorithm>
#include <array>

#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr LocalizedText kUntitled{"FileNames.kUntitled", "Untitled"};

/// Devices on another system, under any extension. A memory card or a share may go there.
bool NamesDevice(std::string_view name) {
  constexpr std::array<std::string_view, 4> kDevices{"con", "prn", "aux", "nul"};
  const std::string stem = LowerCase(Trim(name.substr(0, name.find('.'))));
  if (std::find(kDevices.begin(), kDevices.end(), stem) != kDevices.end()) return true;
  return stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) &&
         stem[3] >= '1' && stem[3] <= '9';
}

bool Allowed(char c) {
  constexpr std::string_view kReserved = "/\\:*?\"<>|";
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x20 && byte != 0x7F && kReserved.find(c) == std::string_view::npos;
}

std::string_view WithoutEnds(std::string_view text) {
  constexpr std::string_view kEnds = ". \t";
  const std::size_t first = text.find_first_not_of(kEnds);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kEnds) - first + 1);
}

}  // namespace

bool IsPlainName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." &&
         name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::string_view CutAtCharacter(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  const auto inside = [&](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  std::size_t size = most;
  while (size > 0 && inside(size)) --size;
  return text.substr(0, size);
}

std::string SafeFileName(std::string_view text, std::string_view ending) {
  std::string name = EnsureUTF8(text);
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !Allowed(c); }, '-');
  const std::size_t most = kLongestName - std::min(ending.size() + 1, kLongestName);
  name = WithoutEnds(CutAtCharacter(WithoutEnds(name), most));
  if (name.find_first_not_of('-') == std::string::npos) name = kUntitled.Text();
  if (NamesDevice(name)) name.insert(0, 1, '_');
  return name.append(ending);
}

std::string NumberedName(std::string_view stem, int number, std::string_view ending,
                         std::size_t reserved) {
  const std::string tail =
      (number == 0 ? std::string() : "-" + std::to_string(number)).append(ending);
  const std::size_t taken = std::min(tail.size() + reserved, kLongestName);
  return std::string(CutAtCharacter(stem, kLongestName - taken)).append(tail);
}

FolderItem PlaceAfter(const FolderItem& item, const FolderItem& before, const FolderItem& after) {
  const std::string path = item.ShellPath();
  const std::string from = before.ShellPath();
  if (path == from) return after;
  if (!path.starts_with(from + "/")) return {};
  return FolderItem(after.ShellPath() + path.substr(from.size()));
}

}  // namespace brivolant
