// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brivolant {

/// Changes properties of an XMP packet and keeps all else of it as it stands.
namespace XMPEditor {

/// Gives a property, "prefix:name", these texts; with none of them it goes. An empty packet is
/// made. False, and the packet is as it was, if it is no XML with RDF in it, or if nobody knows
/// what the prefix stands for.
[[nodiscard]] bool Set(std::string& packet, std::string_view property,
                       const std::vector<std::string>& texts);
/// A property that holds one text in several languages.
bool InLanguages(std::string_view property);
/// Takes out all properties of which the local name begins so, such as "GPS", in capitals or not,
/// of known and unknown namespaces, also within structures; with a colon at its end, all of a
/// prefix.
[[nodiscard]] bool RemoveLike(std::string& packet, const std::vector<std::string_view>& beginnings);
/// Puts into a packet what of another has such a name, whole, beside what it holds; an empty packet
/// is made if there is any. False, and the packet is as it was, if one of them cannot be read.
[[nodiscard]] bool CarryLike(std::string& packet, const std::string& from,
                             const std::vector<std::string_view>& beginnings);

}  // namespace XMPEditor

}  // namespace brivolant
