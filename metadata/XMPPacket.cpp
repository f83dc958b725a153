// SPDX-License-Identifier: MIT
// The properties of an XMP packet.
#include <algorithm>
#include <array>
#include <pugixml.hpp>
#include <string_view>
#include <unordered_map>

#include "metadata/MetadataBlocks.h"
#include "metadata/XMPNodes.h"

namespace brivolant {
namespace {

constexpr std::string_view kRdf = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
constexpr std::string_view kXml = "http://www.w3.org/XML";
/// Deeper is no packet.
constexpr int kDeepest = 64;

struct Namespace {
  std::string_view Prefix;
  std::string_view Name;
};

/// The namespaces of photos, each by the prefixes of both generations, the usual one first.
constexpr std::array kNamespaces{
    Namespace{"dc", "http://purl.org/dc/elements/1.1/"},
    Namespace{"xmp", "http://ns.adobe.com/xap/1.0/"},
    Namespace{"xap", "http://ns.adobe.com/xap/1.0/"},
    Namespace{"xmpMM", "http://ns.adobe.com/xap/1.0/mm/"},
    Namespace{"xapMM", "http://ns.adobe.com/xap/1.0/mm/"},
    Namespace{"xmpRights", "http://ns.adobe.com/xap/1.0/rights/"},
    Namespace{"xapRights", "http://ns.adobe.com/xap/1.0/rights/"},
    Namespace{"photoshop", "http://ns.adobe.com/photoshop/1.0/"},
    Namespace{"tiff", "http://ns.adobe.com/tiff/1.0/"},
    Namespace{"exif", "http://ns.adobe.com/exif/1.0/"},
    Namespace{"exifEX", "http://cipa.jp/exif/1.0/"},
    Namespace{"aux", "http://ns.adobe.com/exif/1.0/aux/"},
    Namespace{"Iptc4xmpCore", "http://iptc.org/std/Iptc4xmpCore/1.0/xmlns/"},
    Namespace{"Iptc4xmpExt", "http://iptc.org/std/Iptc4xmpExt/2008-02-29/"},
    Namespace{"MicrosoftPhoto", "http://ns.microsoft.com/photo/1.0/"},
    Namespace{"MicrosoftPhoto", "http://ns.microsoft.com/photo/1.0"},
    Namespace{"lr", "http://ns.adobe.com/lightroom/1.0/"}};

/// What changes a document goes down into it by recursion.
bool IsTooDeep(pugi::xml_node document) {
  int depth = 0;
  pugi::xml_node node = document.first_child();
  while (node) {
    if (depth > kDeepest) return true;
    if (node.first_child()) {
      node = node.first_child();
      ++depth;
      continue;
    }
    while (node && node != document && !node.next_sibling()) {
      node = node.parent();
      --depth;
    }
    if (!node || node == document) break;
    node = node.next_sibling();
  }
  return false;
}

pugi::xml_node FindRdfBelow(pugi::xml_node node, int depth) {
  if (XMPNodes::IsRdf(node, "RDF")) return node;
  for (const pugi::xml_node child : node.children()) {
    if (depth >= kDeepest) break;
    if (const pugi::xml_node found = FindRdfBelow(child, depth + 1)) return found;
  }
  return {};
}

}  // namespace

std::string_view XMPNodes::WithoutZeros(std::string_view packet) {
  const std::size_t size = packet.size();
  while (!packet.empty() && packet.back() == '\0') packet.remove_suffix(1);
  const bool pairs =
      packet.starts_with("\xFF\xFE") || packet.starts_with(std::string_view("<\0", 2));
  if (!pairs || packet.size() % 2 == 0 || packet.size() == size) return packet;
  return {packet.data(), packet.size() + 1};
}

std::string_view XMPNodes::NamespaceOf(pugi::xml_node node, std::string_view name) {
  const std::size_t colon = name.find(':');
  const std::string attribute =
      colon == std::string_view::npos ? "xmlns" : "xmlns:" + std::string(name.substr(0, colon));
  for (; node; node = node.parent()) {
    if (const pugi::xml_attribute found = node.attribute(attribute.c_str())) return found.value();
  }
  return name.starts_with("xml:") ? kXml : std::string_view();
}

std::string_view XMPNodes::Local(std::string_view name) {
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool XMPNodes::IsRdf(pugi::xml_node node, std::string_view local) {
  return Local(node.name()) == local && NamespaceOf(node, node.name()) == kRdf;
}

std::string_view XMPNodes::NamespaceOfPrefix(std::string_view prefix) {
  const auto known = std::ranges::find(kNamespaces, prefix, &Namespace::Prefix);
  return known == kNamespaces.end() ? std::string_view() : known->Name;
}

std::vector<std::string_view> XMPNodes::NamespacesOfPrefix(std::string_view prefix) {
  std::vector<std::string_view> names;
  for (const Namespace& known : kNamespaces) {
    if (known.Prefix == prefix) names.push_back(known.Name);
  }
  return names;
}

std::string XMPNodes::UsualName(pugi::xml_node node, std::string_view name) {
  const auto known = std::ranges::find(kNamespaces, NamespaceOf(node, name), &Namespace::Name);
  if (known == kNamespaces.end()) return std::string(name);
  return std::string(known->Prefix) + ":" + std::string(Local(name));
}

pugi::xml_node XMPNodes::FindRdf(pugi::xml_node document) {
  return FindRdfBelow(document, 0);
}

bool XMPNodes::Load(pugi::xml_document& document, std::string_view packet) {
  packet = WithoutZeros(packet);
  return document.load_buffer(packet.data(), packet.size(),
                              pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment) &&
         !IsTooDeep(document);
}

std::string XMPNodes::Saved(pugi::xml_document& document) {
  struct Writer final : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override {
      text.append(static_cast<const char*>(data), size);
    }
  };
  for (auto child = document.first_child(); child;) {
    const auto next = child.next_sibling();
    if (child.type() == pugi::node_declaration) document.remove_child(child);
    child = next;
  }
  Writer writer;
  document.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
  return std::move(writer.text);
}

namespace {

using XMPNodes::IsRdf;
using XMPNodes::Local;
using XMPNodes::NamespaceOf;

/// Not the names of a format, but of somebody's data.
bool IsProperty(pugi::xml_node node, std::string_view name) {
  if (name == "xmlns" || name.starts_with("xmlns:") || name.find(':') == std::string_view::npos) {
    return false;
  }
  const std::string_view space = NamespaceOf(node, name);
  return !space.starts_with(kRdf) && !space.starts_with(kXml);
}

/// A text, or the texts of all fields.
void TextsOf(pugi::xml_node item, int depth, std::vector<std::string>& texts) {
  bool fields = false;
  for (const pugi::xml_attribute attribute : item.attributes()) {
    if (!IsProperty(item, attribute.name()) && Local(attribute.name()) != "resource") continue;
    fields = true;
    texts.emplace_back(attribute.value());
  }
  for (const pugi::xml_node child : item.children()) {
    if (child.type() != pugi::node_element) continue;
    fields = true;
    if (depth < kDeepest) TextsOf(child, depth + 1, texts);
  }
  if (!fields) texts.emplace_back(item.text().get());
}

/// No packet of a photo has more; hostile ones are read no further.
constexpr std::size_t kMostProperties = 10000;

/// Properties in order, each name once.
class Collected {
 public:
  explicit Collected(XMPProperties& properties) : properties_(properties) {}
  bool Full() const { return properties_.size() >= kMostProperties; }
  void Keep(const std::string& name, std::vector<std::string> texts) {
    const auto [known, fresh] = places_.try_emplace(name, properties_.size());
    if (fresh) {
      properties_.emplace_back(name, std::move(texts));
      return;
    }
    auto& held = properties_[known->second].second;
    held.insert(held.end(), texts.begin(), texts.end());
  }

 private:
  XMPProperties& properties_;
  std::unordered_map<std::string, std::size_t> places_;
};

/// Texts in several languages begin with the one for everybody.
bool ForEverybody(pugi::xml_node item) {
  return std::string_view(item.attribute("xml:lang").value()) == "x-default";
}

}  // namespace

bool ReadXMP(std::string_view packet, XMPProperties& properties, XMPNames names) {
  const auto named = [names](pugi::xml_node node, const char* name) {
    return names == XMPNames::kUsual ? XMPNodes::UsualName(node, name) : std::string(name);
  };
  packet = XMPNodes::WithoutZeros(packet);
  pugi::xml_document document;
  if (!document.load_buffer(packet.data(), packet.size(),
                            pugi::parse_default | pugi::parse_ws_pcdata_single)) {
    return false;
  }
  const pugi::xml_node rdf = XMPNodes::FindRdf(document);
  if (!rdf) return false;
  Collected collected(properties);
  for (const pugi::xml_node description : rdf.children()) {
    if (description.type() != pugi::node_element) continue;
    for (const pugi::xml_attribute attribute : description.attributes()) {
      if (collected.Full()) return true;
      if (IsProperty(description, attribute.name())) {
        collected.Keep(named(description, attribute.name()), {attribute.value()});
      }
    }
    for (const pugi::xml_node property : description.children()) {
      if (collected.Full()) return true;
      if (property.type() != pugi::node_element || !IsProperty(property, property.name())) continue;
      const pugi::xml_node list = property.find_child(
          [](pugi::xml_node child) { return child.type() == pugi::node_element; });
      std::vector<std::string> texts;
      if (list && (IsRdf(list, "Bag") || IsRdf(list, "Seq") || IsRdf(list, "Alt"))) {
        const bool languages = IsRdf(list, "Alt");
        for (const bool everybody : {true, false}) {
          for (const pugi::xml_node item : list.children()) {
            if (item.type() != pugi::node_element) continue;
            if ((languages && ForEverybody(item)) == everybody) TextsOf(item, 0, texts);
          }
        }
      } else {
        TextsOf(property, 0, texts);
      }
      collected.Keep(named(property, property.name()), std::move(texts));
    }
  }
  return true;
}

}  // namespace brivolant
