// SPDX-License-Identifier: MIT
// The tags that can be added to what a file tells.
#include <array>
#include <span>

#include "app/info/MetaDataBrowser.h"
#include "kit/InterfaceKitSupport.h"
#include "metadata/TagCatalog.h"

namespace brivolant {
namespace {

using Sections = MetadataSection;

struct Offered {
  const char* Tag;
  const char* Name;
};
constexpr std::array kTiffOffers{Offered{"013B", "Artist"},         Offered{"8298", "Copyright"},
                                 Offered{"013C", "Host Computer"},  Offered{"010E", "Description"},
                                 Offered{"010F", "Device Make"},    Offered{"0110", "Device Model"},
                                 Offered{"010D", "Document Name"},  Offered{"011D", "Page Name"},
                                 Offered{"EDED", "Originating URL"}};
constexpr std::array kIptcOffers{Offered{"80", "Byline"},
                                 Offered{"85", "Byline Title"},
                                 Offered{"90", "City"},
                                 Offered{"92", "Sub Location"},
                                 Offered{"95", "Province/State"},
                                 Offered{"100", "Country Code"},
                                 Offered{"101", "Country Name"},
                                 Offered{"105", "Headline"},
                                 Offered{"110", "Credit"},
                                 Offered{"115", "Source"},
                                 Offered{"116", "Copyright String"},
                                 Offered{"118", "Contact"},
                                 Offered{"120", "Caption"},
                                 Offered{"121", "Local Caption"},
                                 Offered{"122", "Caption Writer"},
                                 Offered{"3", "Object TypeReference"},
                                 Offered{"4", "Object Attribute Reference"},
                                 Offered{"5", "Object Name"},
                                 Offered{"7", "Edit Status"},
                                 Offered{"8", "Editorial Update"},
                                 Offered{"10", "Priority"},
                                 Offered{"12", "Subject Reference"},
                                 Offered{"15", "Category"},
                                 Offered{"20", "Supplemental Category"},
                                 Offered{"22", "Fixture Identifier"},
                                 Offered{"25", "Keywords"},
                                 Offered{"26", "Content Location Code"},
                                 Offered{"27", "Content Location Name"},
                                 Offered{"30", "Release Date"},
                                 Offered{"35", "Release Time"},
                                 Offered{"37", "Expiration Date"},
                                 Offered{"38", "Expiration Time"},
                                 Offered{"40", "Special Instructions"},
                                 Offered{"42", "Action Advised"},
                                 Offered{"45", "Reference Service"},
                                 Offered{"47", "Reference Date"},
                                 Offered{"50", "Reference Number"},
                                 Offered{"55", "Created Date"},
                                 Offered{"60", "Created Time"},
                                 Offered{"62", "Digital Creation Date"},
                                 Offered{"63", "Digital Creation Time"},
                                 Offered{"65", "Originating Program"},
                                 Offered{"70", "Program Version"},
                                 Offered{"75", "Object Cycle"},
                                 Offered{"103", "Original Transmission reference"},
                                 Offered{"125", "Rasterized Caption"},
                                 Offered{"130", "Image Type"},
                                 Offered{"131", "Image Orientation"},
                                 Offered{"135", "Language Identifier"},
                                 Offered{"150", "Content Preview"},
                                 Offered{"151", "Audio Sampling Rate"},
                                 Offered{"152", "Audio Sampling Resolution"},
                                 Offered{"153", "Audio Duration"},
                                 Offered{"154", "Audio Outcue"},
                                 Offered{"184", "Job ID"},
                                 Offered{"185", "Master Document ID"},
                                 Offered{"186", "Short Document ID"},
                                 Offered{"187", "Unique Document ID"},
                                 Offered{"188", "Owner ID"},
                                 Offered{"200", "Obj Data Preview File Format"},
                                 Offered{"201", "Obj Data Preview File Format Ver"},
                                 Offered{"202", "Obj Data Preview Data"},
                                 Offered{"225", "Classify State"},
                                 Offered{"228", "Similarity Index"},
                                 Offered{"230", "Document Notes"},
                                 Offered{"231", "Document History"},
                                 Offered{"232", "EXIF Camera Info"}};

/// What is said of photos that are never written.
constexpr std::array kXmpOffers{Offered{"dc:title", "Title"},
                                Offered{"dc:description", "Description"},
                                Offered{"dc:creator", "Creator"},
                                Offered{"dc:rights", "Copyright"},
                                Offered{"dc:subject", "Keywords"},
                                Offered{"xmp:Rating", "Rating"},
                                Offered{"photoshop:Headline", "Headline"},
                                Offered{"photoshop:City", "City"},
                                Offered{"photoshop:State", "Province/State"},
                                Offered{"photoshop:Country", "Country Name"}};

constexpr std::string_view kXmpMark = "XMP";
constexpr std::string_view kTiffMark = "TIF";
constexpr std::string_view kIptcMark = "IPT";

}  // namespace

std::vector<MenuItem> MetaDataBrowser::CreateItemsMenu() const {
  std::vector<MenuItem> items;
  if (!info_ || info_->KeptIn() == FileInfo::Keeps::kNowhere) return items;
  const auto add = [&](const std::string& text, const std::string& tag) {
    MenuItem item;
    item.Text = text;
    item.Tag = tag;
    item.Enabled = !tag.empty();
    items.push_back(std::move(item));
  };
  const auto offer = [&](MetadataBlock block, int section, const LocalizedText& heading,
                         const LocalizedText& make, const char* makeTag, std::string_view mark,
                         std::span<const Offered> offers) {
    if (Section(section) == nullptr) return add(make.Text(), makeTag);
    add(heading.Text(), {});
    for (const Offered& offered : offers) {
      const std::string_view tag = offered.Tag;
      const bool repeats = block == MetadataBlock::kIptc && (tag == "20" || tag == "25");
      if (!repeats && !info_->Draft().Texts(block, offered.Tag).empty()) continue;
      add(TagCatalog::Shown(offered.Name), std::string(mark) + offered.Tag);
    }
  };
  if (info_->Draft().PacketOnly()) {
    add(EmptySection(MetadataBlock::kXmp).Label, {});
    for (const Offered& offered : kXmpOffers) {
      const bool repeats = std::string_view(offered.Tag) == "dc:subject";
      if (!repeats && !info_->Draft().Texts(MetadataBlock::kXmp, offered.Tag).empty()) continue;
      add(TagCatalog::Shown(offered.Name), std::string(kXmpMark) + offered.Tag);
    }
    return items;
  }
  offer(MetadataBlock::kTiff, Sections::kTiff, kTiffTags, kAddTiff, "AddTIFF", kTiffMark,
        kTiffOffers);
  add("-", {});
  offer(MetadataBlock::kIptc, Sections::kIptc, kIptcTags, kAddIptc, "AddIPTC", kIptcMark,
        kIptcOffers);
  add("-", {});
  return items;
}

void MetaDataBrowser::handleItemsMenu(const std::string& tag) {
  if (!info_) return;
  const auto block = [&](MetadataBlock which) {
    const MetadataSection empty = EmptySection(which);
    if (Section(empty.Is) != nullptr) return;
    auto* item = new QTreeWidgetItem({ToQString(empty.Label)});
    item->setData(0, kSectionRole, empty.Is);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    addTopLevelItem(item);
    setFirstColumnSpanned(topLevelItemCount() - 1, {}, true);
    item->setExpanded(Visible(empty.Is));
  };
  if (tag == "AddTIFF") return block(MetadataBlock::kTiff);
  if (tag == "AddIPTC") return block(MetadataBlock::kIptc);
  const bool tiff = tag.starts_with(kTiffMark);
  const bool xmp = tag.starts_with(kXmpMark);
  if (!tiff && !xmp && !tag.starts_with(kIptcMark)) return;
  // What is added must be seen.
  if (!filter_.isEmpty()) Filter({});
  const std::string own = tag.substr(kTiffMark.size());
  const MetadataSection empty = EmptySection(xmp    ? MetadataBlock::kXmp
                                             : tiff ? MetadataBlock::kTiff
                                                    : MetadataBlock::kIptc);
  QTreeWidgetItem* section = Section(empty.Is);
  if (section == nullptr) return;
  // Nothing is said until something is typed.
  const auto held = info_->Draft().Texts(*empty.Block, own);
  auto* line =
      new QTreeWidgetItem(section, {ToQString(NameOfTag(*empty.Block, own) + ":"), QString()});
  line->setData(0, kTagRole, ToQString(own));
  line->setData(0, kIndexRole, static_cast<int>(held.size()) + 1);
  line->setData(0, kTextRole, true);
  line->setFlags(line->flags() | Qt::ItemIsEditable);
  section->setExpanded(true);
  setCurrentItem(line, 1);
  scrollToItem(line);
  editItem(line, 1);
}

}  // namespace brivolant
