// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace brivolant {

/// What the reader and the editor of XMP packets ask of XML.
namespace XMPNodes {

/// A packet without the zeros that pad it; of what is written in units of two bytes, whole ones.
std::string_view WithoutZeros(std::string_view packet);
/// What a prefix stands for at a node; empty for what stands for nothing.
std::string_view NamespaceOf(pugi::xml_node node, std::string_view name);
/// The name without its prefix.
std::string_view Local(std::string_view name);
bool IsRdf(pugi::xml_node node, std::string_view local);
/// Of the namespaces of photos: by their prefix, of either generation; empty for what is none.
std::string_view NamespaceOfPrefix(std::string_view prefix);
/// All that programs have written for it, the usual one first.
std::vector<std::string_view> NamespacesOfPrefix(std::string_view prefix);
/// A name with the prefix that its namespace usually has; as it is, if nobody knows it.
std::string UsualName(pugi::xml_node node, std::string_view name);
/// The RDF of a document; null if there is none.
pugi::xml_node FindRdf(pugi::xml_node document);
/// Reads a packet with all that is in it, also the blanks that pad it. False if it is no XML, or
/// nested as no packet is.
[[nodiscard]] bool Load(pugi::xml_document& document, std::string_view packet);
/// The packet again, in UTF-8, whatever was said of what was read.
std::string Saved(pugi::xml_document& document);

}  // namespace XMPNodes

}  // namespace brivolant
