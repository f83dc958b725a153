// SPDX-License-Identifier: MIT
#include "metadata/XMPEditor.h"

#include <algorithm>
#include <array>
#include <pugixml.hpp>

#include "metadata/XMPNodes.h"
#include "platform/values/Text.h"

namespace brivolant::XMPEditor {
namespace {

using XMPNodes::IsRdf;
using XMPNodes::Load;
using XMPNodes::Local;
using XMPNodes::NamespaceOf;
using XMPNodes::NamespaceOfPrefix;
using XMPNodes::Saved;

constexpr std::string_view kEmpty =
    "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
    "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
    " <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
    "  <rdf:Description rdf:about=\"\"/>\n"
    " </rdf:RDF>\n"
    "</x:xmpmeta>\n"
    "<?xpacket end=\"w\"?>";

/// What is kept as a list, by the standard; null for a plain text.
const char* ContainerOf(std::string_view space, std::string_view local) {
  struct Row {
    std::string_view Prefix;
    std::string_view Local;
    const char* Container;
  };
  static constexpr std::array kRows{Row{"dc", "title", "Alt"},
                                    Row{"dc", "description", "Alt"},
                                    Row{"dc", "rights", "Alt"},
                                    Row{"dc", "creator", "Seq"},
                                    Row{"dc", "subject", "Bag"},
                                    Row{"dc", "contributor", "Bag"},
                                    Row{"dc", "language", "Bag"},
                                    Row{"dc", "publisher", "Bag"},
                                    Row{"dc", "relation", "Bag"},
                                    Row{"dc", "type", "Bag"},
                                    Row{"dc", "date", "Seq"},
                                    Row{"photoshop", "SupplementalCategories", "Bag"},
                                    Row{"xmpRights", "UsageTerms", "Alt"},
                                    Row{"xmpRights", "Owner", "Bag"},
                                    Row{"xmp", "Identifier", "Bag"},
                                    Row{"tiff", "ImageDescription", "Alt"},
                                    Row{"tiff", "Copyright", "Alt"},
                                    Row{"exif", "UserComment", "Alt"},
                                    Row{"lr", "hierarchicalSubject", "Bag"}};
  for (const Row& row : kRows) {
    if (row.Local != local) continue;
    if (NamespaceOfPrefix(row.Prefix) == space) return row.Container;
  }
  return nullptr;
}

bool Is(pugi::xml_node node, std::string_view name, std::string_view space,
        std::string_view local) {
  return Local(name) == local && NamespaceOf(node, name) == space;
}

/// Takes out what is an attribute; gives back the element, if it is one.
pugi::xml_node Clear(pugi::xml_node rdf, std::string_view space, std::string_view local) {
  pugi::xml_node found;
  for (pugi::xml_node description : rdf.children()) {
    for (auto attribute = description.first_attribute(); attribute;) {
      const auto next = attribute.next_attribute();
      if (Is(description, attribute.name(), space, local)) description.remove_attribute(attribute);
      attribute = next;
    }
    for (auto property = description.first_child(); property;) {
      const auto next = property.next_sibling();
      if (property.type() == pugi::node_element && Is(property, property.name(), space, local)) {
        if (found) {
          description.remove_child(property);
        } else {
          found = property;
        }
      }
      property = next;
    }
  }
  return found;
}

/// A description has the property, as an attribute or an element.
bool Holds(pugi::xml_node rdf, std::string_view space, std::string_view local) {
  for (const pugi::xml_node description : rdf.children()) {
    for (const pugi::xml_attribute attribute : description.attributes()) {
      if (Is(description, attribute.name(), space, local)) return true;
    }
    for (const pugi::xml_node property : description.children()) {
      if (property.type() == pugi::node_element && Is(property, property.name(), space, local)) {
        return true;
      }
    }
  }
  return false;
}

/// The prefix under which a document writes names of a format.
std::string RdfPrefix(pugi::xml_node rdf) {
  const std::string_view name = rdf.name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? std::string() : std::string(name.substr(0, colon + 1));
}

/// A description in which a prefix can be declared, and the name under which the property stands
/// there.
pugi::xml_node NewProperty(pugi::xml_node rdf, std::string_view prefix, std::string_view space,
                           std::string_view local) {
  pugi::xml_node description =
      rdf.find_child([](pugi::xml_node child) { return IsRdf(child, "Description"); });
  if (!description) {
    description = rdf.append_child((RdfPrefix(rdf) + "Description").c_str());
    description.append_attribute((RdfPrefix(rdf) + "about").c_str()) = "";
  }
  std::string name(prefix);
  const std::string_view bound = NamespaceOf(description, name + ":x");
  if (bound.empty()) {
    description.append_attribute(("xmlns:" + name).c_str()) = std::string(space).c_str();
  } else if (bound != space) {
    // The prefix is another's here.
    name = "bp" + name;
    if (NamespaceOf(description, name + ":x").empty()) {
      description.append_attribute(("xmlns:" + name).c_str()) = std::string(space).c_str();
    }
  }
  return description.append_child((name + ":" + std::string(local)).c_str());
}

/// The item of a list that says a text in no language by name, or else the first.
pugi::xml_node DefaultItem(pugi::xml_node property) {
  const pugi::xml_node list =
      property.find_child([](pugi::xml_node child) { return IsRdf(child, "Alt"); });
  pugi::xml_node first;
  for (const pugi::xml_node item : list.children()) {
    if (!IsRdf(item, "li")) continue;
    if (std::string_view(item.attribute("xml:lang").value()) == "x-default") return item;
    if (!first) first = item;
  }
  return first;
}

void Fill(pugi::xml_node property, const std::string& rdf, const char* container,
          const std::vector<std::string>& texts) {
  // What other languages say stays.
  if (pugi::xml_node item = DefaultItem(property); item && texts.size() == 1) {
    item.remove_children();
    item.append_child(pugi::node_pcdata).set_value(texts.front().c_str());
    return;
  }
  // What stands there in another form, as fields or a resource, is no text.
  property.remove_children();
  for (auto attribute = property.first_attribute(); attribute;) {
    const auto next = attribute.next_attribute();
    const std::string_view name = attribute.name();
    if (name != "xml:lang" && !name.starts_with("xmlns")) property.remove_attribute(attribute);
    attribute = next;
  }
  if (container == nullptr) {
    property.append_child(pugi::node_pcdata).set_value(texts.front().c_str());
    return;
  }
  pugi::xml_node list = property.append_child((rdf + container).c_str());
  for (const std::string& text : texts) {
    pugi::xml_node item = list.append_child((rdf + "li").c_str());
    if (std::string_view(container) == "Alt") item.append_attribute("xml:lang") = "x-default";
    item.append_child(pugi::node_pcdata).set_value(text.c_str());
  }
}

bool IsName(std::string_view text) {
  const auto letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return !text.empty() && letter(text.front()) && std::ranges::all_of(text, [&](char c) {
    return letter(c) || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
  });
}

/// Without what XML has no way to say.
std::string XmlText(const std::string& text) {
  std::string result = EnsureUTF8(text);
  std::erase_if(result, [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
  });
  return result;
}

bool Like(std::string_view name, const std::vector<std::string_view>& beginnings) {
  return std::ranges::any_of(beginnings, [&](std::string_view start) {
    const std::string_view compared = start.ends_with(':') ? name : Local(name);
    return EqualIgnoringCase(compared.substr(0, start.size()), start);
  });
}

void RemoveBelow(pugi::xml_node node, const std::vector<std::string_view>& beginnings, int depth) {
  constexpr int kDeepest = 64;
  for (auto attribute = node.first_attribute(); attribute;) {
    const auto next = attribute.next_attribute();
    const std::string_view name = attribute.name();
    if (!name.starts_with("xmlns") && Like(name, beginnings)) {
      node.remove_attribute(attribute);
    }
    attribute = next;
  }
  for (auto child = node.first_child(); child;) {
    const auto next = child.next_sibling();
    if (child.type() == pugi::node_element) {
      if (Like(child.name(), beginnings)) {
        node.remove_child(child);
      } else if (depth < kDeepest) {
        RemoveBelow(child, beginnings, depth + 1);
      }
    }
    child = next;
  }
}

}  // namespace

bool Set(std::string& packet, std::string_view property, const std::vector<std::string>& written) {
  const std::size_t colon = std::min(property.find(':'), property.size());
  const std::string_view prefix = property.substr(0, colon);
  const std::string_view local = property.substr(std::min(colon + 1, property.size()));
  if (!IsName(prefix) || !IsName(local)) return false;
  std::vector<std::string> texts;
  texts.reserve(written.size());
  for (const std::string& text : written) texts.push_back(XmlText(text));
  if (packet.empty() && texts.empty()) return true;
  pugi::xml_document document;
  if (!Load(document, packet.empty() ? kEmpty : std::string_view(packet))) return false;
  pugi::xml_node rdf = XMPNodes::FindRdf(document);
  if (!rdf) return false;
  std::string space(NamespaceOfPrefix(prefix));
  // Some have been written in more than one way: the one that is there stays.
  for (const std::string_view known : XMPNodes::NamespacesOfPrefix(prefix)) {
    if (Holds(rdf, known, local)) space = known;
  }
  if (space.empty()) {
    for (const pugi::xml_node description : rdf.children()) {
      if (space.empty()) space = NamespaceOf(description, property);
    }
  }
  if (space.empty()) return false;
  pugi::xml_node node = Clear(rdf, space, local);
  if (texts.empty()) {
    if (node) node.parent().remove_child(node);
  } else {
    const char* container = ContainerOf(space, local);
    if (node) {
      // The kind of list that is there stays.
      for (const char* kind : {"Bag", "Seq", "Alt"}) {
        const bool is = static_cast<bool>(
            node.find_child([kind](pugi::xml_node child) { return IsRdf(child, kind); }));
        if (is) container = kind;
      }
    } else {
      node = NewProperty(rdf, prefix, space, local);
    }
    if (container == nullptr && texts.size() > 1) container = "Bag";
    Fill(node, RdfPrefix(rdf), container, texts);
  }
  packet = Saved(document);
  return true;
}

bool InLanguages(std::string_view property) {
  const std::size_t colon = property.find(':');
  if (colon == std::string_view::npos) return false;
  const char* container =
      ContainerOf(NamespaceOfPrefix(property.substr(0, colon)), property.substr(colon + 1));
  return container != nullptr && std::string_view(container) == "Alt";
}

bool RemoveLike(std::string& packet, const std::vector<std::string_view>& beginnings) {
  if (packet.empty()) return true;
  pugi::xml_document document;
  if (!Load(document, packet)) return false;
  const pugi::xml_node rdf = XMPNodes::FindRdf(document);
  if (!rdf) return false;
  RemoveBelow(rdf, beginnings, 0);
  packet = Saved(document);
  return true;
}

bool CarryLike(std::string& packet, const std::string& from,
               const std::vector<std::string_view>& beginnings) {
  if (from.empty()) return true;
  pugi::xml_document source;
  pugi::xml_document document;
  if (!Load(source, from) || !Load(document, packet.empty() ? kEmpty : std::string_view(packet))) {
    return false;
  }
  const pugi::xml_node held = XMPNodes::FindRdf(source);
  pugi::xml_node rdf = XMPNodes::FindRdf(document);
  if (!held || !rdf) return false;
  bool any = false;
  for (const pugi::xml_node description : held.children()) {
    if (!IsRdf(description, "Description")) continue;
    pugi::xml_node copy = rdf.append_copy(description);
    bool holds = false;
    for (auto attribute = copy.first_attribute(); attribute;) {
      const auto next = attribute.next_attribute();
      const std::string_view name = attribute.name();
      const bool like = !name.starts_with("xmlns") && Like(name, beginnings);
      holds = holds || like;
      if (!like && !name.starts_with("xmlns") && XMPNodes::Local(name) != "about") {
        copy.remove_attribute(attribute);
      }
      attribute = next;
    }
    for (auto child = copy.first_child(); child;) {
      const auto next = child.next_sibling();
      const bool like = child.type() == pugi::node_element && Like(child.name(), beginnings);
      holds = holds || like;
      if (!like) copy.remove_child(child);
      child = next;
    }
    if (!holds) {
      rdf.remove_child(copy);
      continue;
    }
    any = true;
    // Its names may have been declared further out.
    for (pugi::xml_node outer = held; outer; outer = outer.parent()) {
      for (const pugi::xml_attribute space : outer.attributes()) {
        const std::string_view name = space.name();
        if (name.starts_with("xmlns") && !copy.attribute(space.name())) copy.append_copy(space);
      }
    }
  }
  if (any) packet = Saved(document);
  return true;
}

}  // namespace brivolant::XMPEditor
