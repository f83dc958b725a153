// SPDX-License-Identifier: MIT
#include "metadata/MetadataDraft.h"

#include <algorithm>
#include <set>

#include "metadata/ImageMetaData.h"
#include "metadata/PhotoFacts.h"
#include "metadata/XMPEditor.h"
#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

using Act = MetadataChange::Act;

/// Lists of names in one text.
std::vector<std::string> SplitAt(const std::string& text, char separator) {
  std::vector<std::string> parts;
  for (const std::string_view part : Split(text, separator)) {
    if (!Trim(part).empty()) parts.emplace_back(Trim(part));
  }
  return parts;
}

void Follow(std::vector<std::string>& texts, const MetadataChange& change) {
  if (change.What != Act::kAdd) texts.clear();
  if (change.What != Act::kRemove && change.Text) texts.push_back(*change.Text);
}

/// Numbers and bytes as edits write them: what is taken back says exactly what was there.
std::string Written(const TiffDataCoreClass& data, const std::string& tag) {
  std::string text;
  for (int i = 1; i <= data.ValueCount(tag); ++i) {
    const TagValue value = data.Value(tag, i);
    if (i > 1) text += ' ';
    if (const auto* rational = std::get_if<Rational>(&value)) {
      text += FixedNumber(rational->numerator, 0) + "/" + FixedNumber(rational->denominator, 0);
    } else if (std::holds_alternative<std::string>(value)) {
      text += AsHex(BytesOf(value));
    } else {
      text += TextOf(value);
    }
  }
  return text;
}

/// As Exif writes a moment, with the zone that is told; what is none stays as it is.
std::string AsMoment(const std::string& text) {
  const std::string_view trimmed = Trim(text);
  const auto date = DateFromExif(trimmed);
  if (!date) return text;
  constexpr std::size_t kMinutes = 16;
  const std::size_t zone = trimmed.find_first_of("+-Z", kMinutes);
  return date->Text() +
         std::string(zone == std::string_view::npos ? std::string_view() : trimmed.substr(zone));
}

}  // namespace

MetadataDraft::MetadataDraft(const ImageMetaData& held, bool packetOnly)
    : held_(held), packetOnly_(packetOnly) {
  XMPProperties properties;
  if (!held.XMP.empty() && ReadXMP(held.XMP, properties, XMPNames::kUsual)) {
    packet_ = std::move(properties);
    for (auto& [name, texts] : packet_) {
      // Of several languages the first is everybody's, and alone is edited.
      if (XMPEditor::InLanguages(name) && texts.size() > 1) texts.resize(1);
    }
    properties.clear();
    (void)ReadXMP(held.XMP, properties);
    // The same properties in the same order, if none stands under two prefixes.
    for (std::size_t i = 0; i < std::min(properties.size(), packet_.size()); ++i) {
      const auto local = [](const std::string& name) { return name.substr(name.find(':') + 1); };
      const std::string& usual = packet_[i].first;
      if (local(properties[i].first) == local(usual)) written_[usual] = properties[i].first;
    }
  }
}

std::string MetadataDraft::UsualName(const std::string& written) const {
  for (const auto& [usual, known] : written_) {
    if (known == written) return usual;
  }
  return written;
}

std::vector<std::string> MetadataDraft::Held(const Place& place) const {
  const auto& [block, tag] = place;
  std::vector<std::string> texts;
  if (block == MetadataBlock::kComment) {
    if (!held_.JPEGComment.empty()) texts.push_back(held_.JPEGComment);
    return texts;
  }
  if (block == MetadataBlock::kXmp) {
    for (const auto& [name, said] : packet_) {
      if (name == tag) texts = said;
    }
    return texts;
  }
  const TiffDataCoreClass* data = held_.BlockOf(block);
  if (data == nullptr || !data->hasKey(tag)) return texts;
  const bool typed = data->TagType(tag) == kAsciiType || block == MetadataBlock::kIptc;
  const bool windows = block == MetadataBlock::kTiff && tag.starts_with("9C9");
  if (windows) return {data->StringValue(tag)};
  if (!typed) return {Written(*data, tag)};
  for (int i = 1; i <= data->ValueCount(tag); ++i) {
    texts.push_back(PlainText(BytesOf(data->Value(tag, i))));
  }
  return texts;
}

std::vector<std::string> MetadataDraft::Texts(MetadataBlock block, const std::string& tag) const {
  const auto edited = now_.find({block, tag});
  return edited == now_.end() ? Held({block, tag}) : edited->second;
}

std::vector<std::string> MetadataDraft::Texts(MetadataField field) const {
  if (packetOnly_) {
    // What is said beside the file goes before what it says.
    for (const auto& [block, tag] : PlacesOf(field)) {
      const bool said = held_.SaidBeside.contains(tag) || now_.contains({block, tag});
      if (block != MetadataBlock::kXmp || !said) continue;
      if (field != MetadataField::kPosition && !FieldOf(block, tag)) continue;
      std::vector<std::string> texts = Texts(block, tag);
      std::erase_if(texts, [](const std::string& text) { return Trim(text).empty(); });
      return texts.size() == 1 && IsJoined(block, tag) ? SplitAt(texts[0], ';') : texts;
    }
  }
  if (field == MetadataField::kKeywords) {
    std::vector<std::string> words;
    for (const auto& [block, tag] : PlacesOf(field)) {
      std::vector<std::string> held = Texts(block, tag);
      if (block == MetadataBlock::kTiff && !held.empty()) held = SplitAt(held.front(), ';');
      for (std::string& word : held) {
        const bool known = std::ranges::find(words, word) != words.end();
        if (!known && !Trim(word).empty()) words.push_back(std::move(word));
      }
    }
    return words;
  }
  for (const auto& [block, tag] : PlacesOf(field)) {
    // A part alone is no text of the field.
    if (field != MetadataField::kPosition && !FieldOf(block, tag)) continue;
    std::vector<std::string> texts = Texts(block, tag);
    std::erase_if(texts, [](const std::string& text) { return Trim(text).empty(); });
    if (texts.empty()) continue;
    return texts.size() == 1 && IsJoined(block, tag) ? SplitAt(texts[0], ';') : texts;
  }
  return {};
}

bool MetadataDraft::Edit(MetadataBlock block, const std::string& tag, int index,
                         const std::string& text) {
  std::vector<std::string> texts = Texts(block, tag);
  const auto at = static_cast<std::size_t>(std::max(index, 1)) - 1;
  const std::string before = at < texts.size() ? texts[at] : std::string();
  if (before == text) return true;
  const auto field = FieldOf(block, tag);
  const bool names = field == MetadataField::kCreator && !IsJoined(block, tag);
  if (names || field == MetadataField::kKeywords) {
    return EditName(*field, before, text, {block, tag});
  }
  const bool list = !field || field == MetadataField::kCreator;
  if (!list) {
    // Of several languages the first.
    texts.assign(text.empty() ? 0 : 1, text);
  } else if (at >= texts.size()) {
    if (!text.empty()) texts.push_back(text);
  } else if (text.empty()) {
    texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(at));
  } else {
    texts[at] = text;
  }
  if (field == MetadataField::kCreator && IsJoined(block, tag) && texts.size() == 1) {
    texts = SplitAt(texts[0], ';');
  }
  if (field == MetadataField::kTaken && !texts.empty()) {
    if (texts.front().size() == std::string_view("YYYY-MM-DD").size()) texts.front() += " 00:00:00";
    texts = {AsMoment(texts.front())};
  }
  if (field) return Set(*field, texts, {block, tag});
  std::vector<MetadataChange> changes;
  AppendChanges(changes, block, tag, texts);
  return Take(std::move(changes));
}

bool MetadataDraft::EditKeyword(const std::string& from, const std::string& to) {
  constexpr auto kKeywords = MetadataField::kKeywords;
  return EditName(kKeywords, from, to, PlacesOf(kKeywords).front());
}

bool MetadataDraft::EditName(MetadataField field, const std::string& from, const std::string& to,
                             const Place& own) {
  const auto edited = [&](std::vector<std::string> names) {
    const auto known = from.empty() ? names.end() : std::ranges::find(names, from);
    const bool there = std::ranges::find(names, to) != names.end();
    if (known == names.end()) {
      if (!to.empty() && !there) names.push_back(to);
    } else if (to.empty() || there) {
      std::erase(names, from);
    } else {
      *known = to;
      std::erase(names, from);
    }
    return names;
  };
  const std::vector<std::string> all = edited(Texts(field));
  const char* between = field == MetadataField::kCreator ? "; " : ";";
  std::vector<MetadataChange> changes;
  // Each place keeps what the others do not say.
  for (const auto& [block, tag] : PlacesOf(field)) {
    if (packetOnly_ && block != MetadataBlock::kXmp) continue;
    const std::vector<std::string> held = Texts(block, tag);
    // A packet has them always, another place where it had some.
    const bool always = block == MetadataBlock::kXmp && IsAlwaysSaid(block, tag);
    if (held.empty() && Place(block, tag) != own && !always) continue;
    if (IsJoined(block, tag)) {
      std::string joined;
      for (const std::string& name : edited(SplitAt(held.empty() ? "" : held.front(), ';'))) {
        joined += (joined.empty() ? "" : between) + name;
      }
      changes.push_back({joined.empty() ? Act::kRemove : Act::kSet, block, tag, joined});
      continue;
    }
    changes.push_back({Act::kRemove, block, tag});
    for (const std::string& name : held.empty() || packetOnly_ ? all : edited(held)) {
      changes.push_back({Act::kAdd, block, tag, name});
    }
  }
  return Take(std::move(changes));
}

bool MetadataDraft::Set(MetadataField field, const std::vector<std::string>& texts) {
  return Set(field, texts, PlacesOf(field).front());
}

bool MetadataDraft::Set(MetadataField field, const std::vector<std::string>& texts,
                        const Place& own) {
  auto changes = ChangesOf(
      field, texts,
      [&](MetadataBlock block, const std::string& tag) {
        // A packet alone holds what a file would say elsewhere.
        if (packetOnly_ && tag.starts_with("exif:GPS")) return true;
        return Place(block, tag) == own || Says({block, tag});
      },
      [&](MetadataBlock block, const std::string& tag) {
        const std::vector<std::string> said = Texts(block, tag);
        return said.empty() ? std::string() : said.front();
      });
  if (!changes) return false;
  return Take(std::move(*changes));
}

bool MetadataDraft::Take(std::vector<MetadataChange> changes) {
  if (packetOnly_) {
    std::erase_if(changes,
                  [](const MetadataChange& change) { return change.Block != MetadataBlock::kXmp; });
    // What is taken out is said too: the file may go on saying it.
    for (std::size_t i = 0; i < changes.size(); ++i) {
      const bool list = i + 1 < changes.size() && changes[i + 1].What == Act::kAdd &&
                        changes[i + 1].Tag == changes[i].Tag;
      if (changes[i].What == Act::kRemove && !list) {
        changes[i] = {Act::kSet, changes[i].Block, changes[i].Tag, std::string()};
      }
    }
  }
  if (changes.empty()) return false;
  steps_.resize(done_);
  steps_.push_back(std::move(changes));
  ++done_;
  Apply();
  return true;
}

void MetadataDraft::Undo() {
  if (!CanUndo()) return;
  --done_;
  Apply();
}

void MetadataDraft::Redo() {
  if (!CanRedo()) return;
  ++done_;
  Apply();
}

void MetadataDraft::Apply() {
  // Places of steps that were taken back, and of what was written, say what the file once said.
  State now;
  for (const auto& [place, texts] : saved_) now[place] = Held(place);
  for (std::size_t i = 0; i < done_; ++i) {
    for (const MetadataChange& change : steps_[i]) {
      const Place place{change.Block, change.Tag};
      if (!now.contains(place)) now[place] = Held(place);
      Follow(now[place], change);
    }
  }
  now_ = std::move(now);
  if (Changed) Changed();
}

std::vector<MetadataChange> MetadataDraft::Pending() const {
  std::vector<MetadataChange> changes;
  for (const auto& [place, texts] : now_) {
    const auto written = saved_.find(place);
    if (texts == (written == saved_.end() ? Held(place) : written->second)) continue;
    AppendChanges(changes, place.first, place.second, texts);
  }
  return changes;
}

void MetadataDraft::Saved(const std::vector<MetadataChange>& written, const State& reads) {
  for (const auto& [place, texts] : reads) reads_[place] = texts;
  State state;
  for (const MetadataChange& change : written) Follow(state[{change.Block, change.Tag}], change);
  for (auto& [place, texts] : state) saved_[place] = std::move(texts);
  if (Changed) Changed();
}

std::map<MetadataDraft::Place, std::vector<std::string>> MetadataDraft::Before(
    const std::vector<MetadataChange>& changes) const {
  State state;
  for (const MetadataChange& change : changes) {
    const Place place{change.Block, change.Tag};
    const auto read = reads_.find(place);
    state[place] = read == reads_.end() ? Held(place) : read->second;
  }
  return state;
}

std::vector<MetadataSection> MetadataDraft::Sections(bool hideUnknown) const {
  std::vector<MetadataSection> sections = SectionsOf(held_, hideUnknown);
  for (MetadataSection& section : sections) {
    for (MetadataRow& row : section.Rows) {
      // A packet alone holds no tags.
      if (packetOnly_ && section.Block != MetadataBlock::kXmp) row.Text = false;
      if (row.Mapped && now_.contains({*section.Block, row.Tag})) row.Tag.clear();
    }
    // Said by the block itself now.
    std::erase_if(section.Rows,
                  [](const MetadataRow& row) { return row.Mapped && row.Tag.empty(); });
  }
  const int xmp = MetadataSection::kXmp;
  if (packetOnly_ && std::ranges::find(sections, xmp, &MetadataSection::Is) == sections.end()) {
    sections.push_back(EmptySection(MetadataBlock::kXmp));
  }
  for (const auto& [place, texts] : now_) {
    const auto& [block, tag] = place;
    if (texts == Held(place)) continue;
    const int number = EmptySection(block).Is;
    auto section = std::ranges::find(sections, number, &MetadataSection::Is);
    if (section == sections.end()) {
      if (texts.empty()) continue;
      // Behind the block that comes before it in a file.
      sections.push_back(EmptySection(block));
      section = std::prev(sections.end());
    }
    // A packet may have another prefix for it.
    std::string shown = tag;
    if (block == MetadataBlock::kXmp) {
      if (const auto known = written_.find(tag); known != written_.end()) shown = known->second;
    }
    auto& rows = section->Rows;
    const auto same = [&](const MetadataRow& row) { return row.Tag == shown; };
    const auto first = std::ranges::find_if(rows, same);
    auto at = static_cast<std::size_t>(first - rows.begin());
    std::erase_if(rows, same);
    int index = 0;
    for (const std::string& text : texts) {
      MetadataRow row{NameOfTag(block, shown) + ":", text, shown, ++index};
      row.Text = true;
      rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(at++), std::move(row));
    }
  }
  return sections;
}

}  // namespace brivolant
