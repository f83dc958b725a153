// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "metadata/MetadataChange.h"
#include "metadata/MetadataFields.h"
#include "metadata/MetadataRows.h"

namespace brivolant {

class ImageMetaData;

/// What a user has changed of a file's texts and not yet written, step by step. An edit of a text
/// that stands in several places changes them all, and says nothing to places that said nothing.
class MetadataDraft {
 public:
  using Place = std::pair<MetadataBlock, std::string>;

  /// `held` must outlive the draft. With `packetOnly` edits are kept in a packet alone, beside a
  /// file that is not written.
  explicit MetadataDraft(const ImageMetaData& held, bool packetOnly = false);
  MetadataDraft(const MetadataDraft&) = delete;
  MetadataDraft& operator=(const MetadataDraft&) = delete;

  /// What a tag says now: no text, one, or of lists several.
  std::vector<std::string> Texts(MetadataBlock block, const std::string& tag) const;
  /// Gives one value of a tag another text, a new one if `index` is behind the last; an empty text
  /// takes it out. False, and nothing has changed, for a text that cannot stand there.
  [[nodiscard]] bool Edit(MetadataBlock block, const std::string& tag, int index,
                          const std::string& text);
  /// Gives all places of a field these texts.
  [[nodiscard]] bool Set(MetadataField field, const std::vector<std::string>& texts);
  /// Gives one keyword another text wherever it stands; an empty text takes it out, and an empty
  /// keyword adds one. Each place keeps the words that the others do not say.
  bool EditKeyword(const std::string& from, const std::string& to);
  /// What a field says now, in the place that belongs to it or else in another; of keywords those
  /// of all places.
  std::vector<std::string> Texts(MetadataField field) const;

  /// Makes changes that another draft of the same file had pending, as one step.
  [[nodiscard]] bool Restore(std::vector<MetadataChange> changes) {
    return Take(std::move(changes));
  }

  bool CanUndo() const { return done_ > 0; }
  bool CanRedo() const { return done_ < steps_.size(); }
  void Undo();
  void Redo();
  /// There is something to write.
  bool Dirty() const { return !Pending().empty(); }
  /// What has to be written so that a file says what the draft does.
  std::vector<MetadataChange> Pending() const;
  /// These have been written; what was edited meanwhile has not.
  /// `reads` is what their places say when they are read again: numbers are written in other words.
  void Saved(const std::vector<MetadataChange>& written,
             const std::map<Place, std::vector<std::string>>& reads);
  /// What the places of changes said in the file when it was last read or written.
  std::map<Place, std::vector<std::string>> Before(
      const std::vector<MetadataChange>& changes) const;
  bool PacketOnly() const { return packetOnly_; }
  /// The name of a property as edits know it, of one as the packet writes it.
  std::string UsualName(const std::string& written) const;

  /// The file's sections as they would be with the edits.
  std::vector<MetadataSection> Sections(bool hideUnknown) const;

  /// Something was edited, undone, or written.
  std::function<void()> Changed;

 private:
  using State = std::map<Place, std::vector<std::string>>;
  bool Take(std::vector<MetadataChange> changes);
  /// With the place that the user edits, which says something from now on.
  bool Set(MetadataField field, const std::vector<std::string>& texts, const Place& own);
  /// What EditKeyword does, of any field that is a list of names.
  bool EditName(MetadataField field, const std::string& from, const std::string& to,
                const Place& own);
  /// The file's own texts.
  std::vector<std::string> Held(const Place& place) const;
  bool Says(const Place& place) const { return !Texts(place.first, place.second).empty(); }
  void Apply();

  const ImageMetaData& held_;
  bool packetOnly_;
  /// The packet's properties by their usual names, and how it writes these.
  std::vector<std::pair<std::string, std::vector<std::string>>> packet_;
  std::map<std::string, std::string> written_;
  std::vector<std::vector<MetadataChange>> steps_;
  std::size_t done_ = 0;
  /// Places that were edited, as they are now, and as they were when they were last written.
  State now_;
  State saved_;
  /// What the file says in them since.
  State reads_;
};

}  // namespace brivolant
