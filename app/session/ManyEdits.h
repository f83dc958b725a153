// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "app/core/Jobs.h"
#include "formats/PastedFiles.h"
#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"
#include "platform/values/Pair.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrivolantDocument;
class WorkerServices;

/// What was done to a photo, or a style would do: to be done to others.
struct CopiedEdits {
  /// Of style data on the clipboard.
  static constexpr const char* kStyleType = "application/x-brivolant-style-data";

  /// All of a document. The pictures that its stacks name stay within reach as long as this lives.
  static CopiedEdits Of(const BrivolantDocument& document, std::string styleData);
  /// Gives a document the stacks with their pictures, and crop and turns if they are wanted. False
  /// if a picture cannot be taken; then nothing else has changed.
  [[nodiscard]] bool ApplyTo(BrivolantDocument& document, bool crop, bool turns) const;

  /// Of the photo or style that they come from.
  std::string Name;
  std::string StyleData;
  /// The pictures that the stacks name.
  PastedFiles Pasted;
  /// They come from a photo, so that there are a crop and turns.
  bool OfPhoto = false;
  bool Crop = false;
  Pair CropOffset;
  Pair CropSize;
  int Orientation = 0;
  int Rotation = 0;
  int Flip = 0;

 private:
  std::shared_ptr<const BrivolantDocument> holds_;
};

/// Edits given to many photos. Each photo gets a document of its own under a free name; a document
/// gets the edits in place of its own. What fails stops nothing else.
class ManyEdits {
 public:
  static constexpr LocalizedText kPasting{"ManyEdits.kPasting", "Pasting edits..."};
  static constexpr LocalizedText kPictureNotTaken{
      "ManyEdits.kPictureNotTaken",
      "A picture that lies over the photo \"<filename>\" could not be copied."};
  static constexpr LocalizedText kChangedSince{
      "ManyEdits.kChangedSince",
      "The document \"<filename>\" stays as it is: it was changed since."};
  static constexpr LocalizedText kOpenNow{"ManyEdits.kOpenNow",
                                          "The document \"<filename>\" is being edited."};
  static constexpr LocalizedText kNotRestored{
      "ManyEdits.kNotRestored", "The document \"<filename>\" could not be brought back."};

  struct Order {
    CopiedEdits Edits;
    bool Crop = false;
    bool Turns = false;
    std::vector<FolderItem> Items;
    /// Where new documents go. Nil stands for the folders of their photos, or the spare one where
    /// nothing can be written or a photo lies in a library's package.
    FolderItem Folder;
    FolderItem Spare;
  };
  struct Failure {
    FolderItem Item;
    /// A sentence.
    std::string Why;
  };

  explicit ManyEdits(Order order);
  ~ManyEdits();
  ManyEdits(const ManyEdits&) = delete;
  ManyEdits& operator=(const ManyEdits&) = delete;

  // On the thread of a job; the worker's services are this object's meanwhile.

  /// Gives the edits to one after the other. Cancelled, it ends between two.
  void Run(WorkerServices& worker, Jobs::Control& control);
  /// Documents that were changed are as they were, and those that were made are in the trash,
  /// unless somebody has changed them since or `keeps` says that they are in use.
  void TakeBack(WorkerServices& worker, const std::vector<FolderItem>& keeps);

  // On any thread.

  /// This one is open by now: who edits it must not find it changed.
  void Spare(const FolderItem& document);

  // What is remembered is no part of what Run works on, and must be settled before TakeBack.

  /// Keeps what a document is that somebody else gives the same edits; `original` is the name of
  /// its original's file, which nobody changes. False if it cannot be kept. On any thread.
  bool Remember(const FolderItem& document, const std::string& original, TemporaryFiles& files);
  /// It has got them.
  void RememberedIsWritten();
  /// Somebody else takes it back.
  void Forget();

  // When the job is done.

  /// There is something that can be taken back, anew perhaps.
  bool Left() const { return !changes_.empty(); }
  /// The documents that were made or changed.
  std::vector<FolderItem> Done() const;
  /// What could not be done by the last call.
  const std::vector<Failure>& Failures() const { return failures_; }

 private:
  struct Change;
  class Renderer;
  std::string Give(const FolderItem& item, WorkerServices& worker, Renderer& renderer,
                   Jobs::Control& control);
  FolderItem PlaceFor(const FolderItem& photo) const;
  bool IsSpared(const FolderItem& document);

  Order order_;
  std::vector<Change> changes_;
  std::unique_ptr<Change> remembered_;
  std::vector<Failure> failures_;
  std::mutex mutex_;
  std::vector<FolderItem> spared_;
};

}  // namespace brivolant
