// SPDX-License-Identifier: MIT
#include "platform/files/FileAddress.h"

#include <unistd.h>

#include <array>

#include "platform/values/Text.h"

namespace brivolant::FileAddress {
namespace {

constexpr std::string_view kScheme = "file:";

bool Plain(char c) {
  constexpr std::string_view kMarks = "-_.~!$&'()*+,;=:@/";
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         kMarks.find(c) != std::string_view::npos;
}

/// The value of a hexadecimal digit, or -1.
int Digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool ThisMachine(std::string_view host) {
  if (host.empty() || EqualIgnoringCase(host, "localhost")) return true;
  std::array<char, 256> own{};
  return gethostname(own.data(), own.size() - 1) == 0 && EqualIgnoringCase(host, own.data());
}

}  // namespace

std::string PercentEncoded(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    if (Plain(c)) {
      text += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      text.append({'%', kDigits[byte >> 4U], kDigits[byte & 15U]});
    }
  }
  return text;
}

std::string Decoded(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape =
        text[i] == '%' && i + 2 < text.size() && Digit(text[i + 1]) >= 0 && Digit(text[i + 2]) >= 0;
    bytes += escape ? static_cast<char>(Digit(text[i + 1]) * 16 + Digit(text[i + 2])) : text[i];
    if (escape) i += 2;
  }
  return bytes;
}

std::string Of(const FolderItem& file) {
  return file.IsNil() ? std::string() : "file://" + PercentEncoded(file.Path().native());
}

FolderItem File(std::string_view address) {
  if (!EqualIgnoringCase(address.substr(0, kScheme.size()), kScheme)) return {};
  std::string_view rest = address.substr(kScheme.size());
  if (rest.starts_with("//")) {
    const std::size_t slash = rest.find('/', 2);
    if (slash == std::string_view::npos || !ThisMachine(rest.substr(2, slash - 2))) return {};
    rest.remove_prefix(slash);
  }
  const std::string path = Decoded(rest);
  if (!path.starts_with('/') || path.find('\0') != std::string::npos) return {};
  return FolderItem(path);
}

std::string ListOf(const std::vector<FolderItem>& files) {
  std::string list;
  for (const FolderItem& file : files) list += Of(file) + "\r\n";
  return list;
}

std::vector<FolderItem> Files(std::string_view list) {
  std::vector<FolderItem> files;
  for (const std::string_view line : Split(list, '\n')) {
    // Some end it by a zero byte.
    const std::string_view address = Trim(line.substr(0, line.find('\0')));
    if (address.starts_with('#')) continue;
    if (FolderItem file = File(address)) files.push_back(std::move(file));
  }
  return files;
}

}  // namespace brivolant::FileAddress
