// SPDX-License-Identifier: MIT
#include "metadata/XMPExtension.h"

#include <QCryptographicHash>
#include <algorithm>
#include <pugixml.hpp>

#include "metadata/BigEndian.h"
#include "metadata/JpegMarks.h"
#include "metadata/XMPNodes.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {

using XMPNodes::IsRdf;
using XMPNodes::NamespaceOf;

constexpr std::string_view kNote = "http://ns.adobe.com/xmp/note/";
constexpr std::string_view kProperty = "HasExtendedXMP";
constexpr std::size_t kDigest = 32;
/// Digest, length and place.
constexpr std::size_t kHead = kDigest + 8;
/// No packet is longer.
constexpr std::uint64_t kMost = std::uint64_t{1} << 26;
/// What a segment of a JPEG holds behind mark and head.
constexpr std::size_t kPiece = 65400;

bool IsNote(pugi::xml_node node, std::string_view name) {
  return XMPNodes::Local(name) == kProperty && NamespaceOf(node, name) == kNote;
}

/// The digest that a packet names; with `remove` the packet names none afterwards, nor declares it.
std::string Digest(pugi::xml_node rdf, bool remove) {
  std::string digest;
  for (pugi::xml_node description : rdf.children()) {
    for (auto attribute = description.first_attribute(); attribute;) {
      const auto next = attribute.next_attribute();
      if (IsNote(description, attribute.name())) {
        digest = attribute.value();
        if (remove) description.remove_attribute(attribute);
      }
      attribute = next;
    }
    for (auto child = description.first_child(); child;) {
      const auto next = child.next_sibling();
      if (child.type() == pugi::node_element && IsNote(child, child.name())) {
        digest = child.text().get();
        if (remove) description.remove_child(child);
      }
      child = next;
    }
    // Not before: without it nobody knows what the name stands for.
    if (remove) description.remove_attribute("xmlns:xmpNote");
  }
  return digest;
}

bool IsDeclaration(std::string_view name) {
  return name == "xmlns" || name.starts_with("xmlns:");
}

/// What stands for the prefixes at one node stands for them at another.
void Declare(pugi::xml_node from, pugi::xml_node to) {
  for (pugi::xml_node node = from; node; node = node.parent()) {
    for (const pugi::xml_attribute attribute : node.attributes()) {
      if (IsDeclaration(attribute.name()) && !to.attribute(attribute.name())) {
        to.append_attribute(attribute.name()) = attribute.value();
      }
    }
  }
}

/// Takes out descriptions that say nothing, but for the first.
void RemoveEmpty(pugi::xml_node rdf) {
  bool first = true;
  for (auto description = rdf.first_child(); description;) {
    const auto next = description.next_sibling();
    if (IsRdf(description, "Description")) {
      bool says = static_cast<bool>(description.find_child(
          [](pugi::xml_node child) { return child.type() == pugi::node_element; }));
      for (const pugi::xml_attribute attribute : description.attributes()) {
        const std::string_view name = attribute.name();
        says = says || (!IsDeclaration(name) && XMPNodes::Local(name) != "about");
      }
      if (!says && !first) rdf.remove_child(description);
      first = false;
    }
    description = next;
  }
}

/// More than any program writes: putting it together would take long.
bool IsTooMuch(std::string_view packet) {
  constexpr std::ptrdiff_t kMostNodes = 100000;
  return std::ranges::count(packet, '<') + std::ranges::count(packet, '=') > kMostNodes;
}
bool DeclaresTooMuch(pugi::xml_node rdf) {
  constexpr std::ptrdiff_t kMostDeclared = 200;
  constexpr std::ptrdiff_t kMostDescriptions = 200;
  std::ptrdiff_t declared = 0;
  std::ptrdiff_t descriptions = 0;
  const auto count = [&](pugi::xml_node node) {
    for (const pugi::xml_attribute attribute : node.attributes()) {
      if (IsDeclaration(attribute.name())) ++declared;
    }
  };
  for (pugi::xml_node node = rdf; node; node = node.parent()) count(node);
  for (const pugi::xml_node description : rdf.children()) {
    count(description);
    ++descriptions;
  }
  return declared > kMostDeclared || descriptions > kMostDescriptions;
}

/// How long a node is when it is written.
std::size_t LengthOf(pugi::xml_node node) {
  struct Counter final : pugi::xml_writer {
    std::size_t length = 0;
    void write(const void*, std::size_t size) override { length += size; }
  };
  Counter counter;
  node.print(counter, "", pugi::format_raw, pugi::encoding_utf8);
  return counter.length;
}

/// A property of a description, as an attribute or an element.
struct Candidate {
  pugi::xml_node Description;
  pugi::xml_attribute Attribute;
  pugi::xml_node Element;
  std::size_t Length = 0;
};

std::vector<Candidate> CandidatesOf(pugi::xml_node rdf) {
  std::vector<Candidate> all;
  for (const pugi::xml_node description : rdf.children()) {
    if (!IsRdf(description, "Description")) continue;
    for (const pugi::xml_attribute attribute : description.attributes()) {
      const std::string_view name = attribute.name();
      if (IsDeclaration(name) || name.find(':') == std::string_view::npos ||
          name.starts_with("xml:") ||
          NamespaceOf(description, name) == NamespaceOf(rdf, rdf.name())) {
        continue;
      }
      all.push_back({description, attribute, {}, std::string_view(attribute.value()).size()});
    }
    for (const pugi::xml_node child : description.children()) {
      if (child.type() != pugi::node_element) continue;
      all.push_back({description, {}, child, LengthOf(child)});
    }
  }
  std::ranges::stable_sort(all, std::ranges::greater(), &Candidate::Length);
  return all;
}

/// The blanks behind a packet pad it, so that it can grow where it stands.
void RemovePadding(pugi::xml_document& document) {
  for (auto child = document.first_child(); child;) {
    const auto next = child.next_sibling();
    if (child.type() == pugi::node_pcdata) document.remove_child(child);
    child = next;
  }
}

}  // namespace

void XMPExtension::Take(std::string_view payload) {
  if (payload.size() <= kHead || taken_ + payload.size() > kMost) return;
  taken_ += payload.size();
  BinaryStream head(payload);
  Stream& stream = streams_[std::string(head.Read(kDigest))];
  stream.Length = head.ReadUInt32();
  stream.Pieces.try_emplace(head.ReadUInt32(), payload.substr(kHead));
}

std::string XMPExtension::Joined(const std::string& packet) {
  whole_ = false;
  if (streams_.empty() || packet.empty() || IsTooMuch(packet)) return packet;
  pugi::xml_document document;
  if (!XMPNodes::Load(document, packet)) return packet;
  pugi::xml_node rdf = XMPNodes::FindRdf(document);
  const auto found = streams_.find(Digest(rdf, false));
  if (!rdf || found == streams_.end()) return packet;
  std::string bytes;
  for (const auto& [at, piece] : found->second.Pieces) {
    if (at != bytes.size()) return packet;
    bytes += piece;
  }
  pugi::xml_document further;
  if (bytes.size() != found->second.Length || IsTooMuch(bytes) || !XMPNodes::Load(further, bytes)) {
    return packet;
  }
  const pugi::xml_node more = XMPNodes::FindRdf(further);
  if (!more || DeclaresTooMuch(more)) return packet;
  for (const pugi::xml_node description : more.children()) {
    if (description.type() != pugi::node_element) continue;
    Declare(description, rdf.append_copy(description));
  }
  whole_ = true;
  return XMPNodes::Saved(document);
}

std::optional<XMPExtension::Parts> XMPExtension::Split(const std::string& packet,
                                                       std::size_t room) {
  Parts parts;
  pugi::xml_document document;
  if (IsTooMuch(packet) || !XMPNodes::Load(document, packet)) return {};
  pugi::xml_node rdf = XMPNodes::FindRdf(document);
  if (!rdf || DeclaresTooMuch(rdf)) return {};
  const bool named = !Digest(rdf, true).empty();
  if (named) RemoveEmpty(rdf);
  parts.Packet = named ? XMPNodes::Saved(document) : packet;
  if (parts.Packet.size() <= room) return parts;
  RemovePadding(document);
  parts.Packet = XMPNodes::Saved(document);
  // What names the digest is not there yet.
  constexpr std::size_t kNamed = 200;
  const std::size_t most = room - std::min(room, kNamed);
  std::size_t length = parts.Packet.size();
  if (length <= most) return parts;
  pugi::xml_document further;
  pugi::xml_node root = further.append_child("x:xmpmeta");
  root.append_attribute("xmlns:x") = "adobe:ns:meta/";
  pugi::xml_node target = root.append_child("rdf:RDF");
  target.append_attribute("xmlns:rdf") = std::string(NamespaceOf(rdf, rdf.name())).c_str();
  // What one description says stays together, with what its prefixes stand for.
  std::vector<std::pair<pugi::xml_node, pugi::xml_node>> moved;
  for (const Candidate& candidate : CandidatesOf(rdf)) {
    if (length <= most) break;
    auto home = std::ranges::find(moved, candidate.Description,
                                  &std::pair<pugi::xml_node, pugi::xml_node>::first);
    if (home == moved.end()) {
      pugi::xml_node fresh = target.append_child("rdf:Description");
      fresh.append_attribute("rdf:about") = "";
      Declare(candidate.Description, fresh);
      home = moved.insert(moved.end(), {candidate.Description, fresh});
    }
    pugi::xml_node description = candidate.Description;
    if (candidate.Element) {
      home->second.append_copy(candidate.Element);
      description.remove_child(candidate.Element);
    } else {
      home->second.append_child(candidate.Attribute.name())
          .append_child(pugi::node_pcdata)
          .set_value(candidate.Attribute.value());
      description.remove_attribute(candidate.Attribute);
    }
    length -= std::min(length, candidate.Length);
  }
  RemoveEmpty(rdf);
  const std::string bytes = XMPNodes::Saved(further);
  if (bytes.size() > kMost) return {};
  const std::string digest =
      QCryptographicHash::hash(QByteArray::fromStdString(bytes), QCryptographicHash::Md5)
          .toHex()
          .toUpper()
          .toStdString();
  pugi::xml_node first =
      rdf.find_child([](pugi::xml_node child) { return IsRdf(child, "Description"); });
  if (!first) return {};
  pugi::xml_attribute declared = first.attribute("xmlns:xmpNote");
  if (!declared) declared = first.append_attribute("xmlns:xmpNote");
  declared = std::string(kNote).c_str();
  first.append_attribute("xmpNote:HasExtendedXMP") = digest.c_str();
  parts.Packet = XMPNodes::Saved(document);
  if (parts.Packet.size() > room) return {};
  for (std::size_t at = 0; at < bytes.size(); at += kPiece) {
    parts.Further.push_back(std::string(JpegMarks::kXmpFurtherMark) + digest +
                            BigEndian(bytes.size(), 4) + BigEndian(at, 4) +
                            bytes.substr(at, kPiece));
  }
  return parts;
}

}  // namespace brivolant
