// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "engine/pictures/ExtendedPicture.h"
#include "formats/DocumentPreviews.h"
#include "formats/PastedFiles.h"
#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/services/Services.h"
#include "platform/values/Date.h"
#include "platform/values/Pair.h"

namespace brivolant {

class IFFData;

/// An image with the edits that were made to it. On disk a folder package that holds the
/// untouched original beside the settings and two previews. The older one-file form is read,
/// never written. A document belongs to one thread at a time.
class BrivolantDocument {
 public:
  static constexpr std::string_view kSettingsName = "Settings";
  static constexpr std::string_view kThumbnailName = "Thumbnail.jpg";
  static constexpr std::string_view kMidSizePreviewName = "MidSizePreview.jpg";
  /// What the owner says of the photo, as XMP: the original is never written.
  static constexpr std::string_view kMetadataName = "Metadata.xmp";
  /// The version of every file written.
  static constexpr int kVersion = 4;

  /// An empty document of the current user, to be loaded or created.
  explicit BrivolantDocument(const Services& services);
  /// A document from a picture that has no file: kept in a temporary package, and dirty.
  BrivolantDocument(const Services& services, Picture picture, const std::string& name);

  /// Takes an image file for the original and keeps a temporary package. False, and
  /// lastErrorMessage says why, if no picture can be read from it.
  [[nodiscard]] bool CreateFromFile(const FolderItem& file);
  /// The same without the package, for a document that is rendered and never saved.
  [[nodiscard]] bool ReadImage(const FolderItem& file);
  /// Reads a package or a one-file document. On failure the user has been told or lastErrorMessage
  /// says why, and the document is partly filled.
  [[nodiscard]] bool Load(const FolderItem& file);
  /// Writes the package at `file`, or at File if nil, under a name with the document's extension.
  /// Every part is written beside and renamed. Asks before it replaces what another program has
  /// written since. False if that was declined or something could not be written; the user has been
  /// told, and what was there before is whole.
  bool Save(const FolderItem& file = {});
  /// Saves at another place, which becomes the document's own. The package there brings along the
  /// original's own bytes and every picture that the stacks name; what cannot be had any more is
  /// asked about first. What stands there goes to the trash once the new package is whole. A
  /// failure leaves both as they were; the user has been told.
  [[nodiscard]] bool SaveAs(const FolderItem& place) { return SaveAs(place, true); }
  /// The same where nothing stands: false, and nothing is told, if something does by then.
  [[nodiscard]] bool SaveAsNew(const FolderItem& place) { return SaveAs(place, false); }
  /// Keeps the original and the pictures of the package within reach, in case that its folder or
  /// its disk goes away while the document is open. What the disk for temporary files has no room
  /// for is read where it lies.
  void HoldFiles();
  /// Takes over what a save has made of a copy of this document: where it lies, and what it is
  /// called.
  void TakeOver(const BrivolantDocument& saved);
  /// What lay at or below `from` was moved to `to`.
  void Relocate(const FolderItem& from, const FolderItem& to);
  /// True if a file or package is of the documents' kind, by its extension or its type code.
  static bool IsDocument(const FolderItem& file);
  /// The original within a package, without opening it; nil if there is none.
  static FolderItem OriginalIn(const FolderItem& package);
  /// The name that Save gives to a package.
  static FolderItem PackageFor(const FolderItem& file);

  /// The untouched original. Nil, and lastErrorMessage says why, if it cannot be read.
  const Picture& ImageOriginal();
  /// The original cropped and oriented, before any effect.
  Picture Image();
  /// Applies crop, orientation, rotation and flip, in this order.
  Picture SetOrientation(const Picture& picture) const;
  /// Gives the decoded original back: it is read again when it is asked for.
  void DropOriginal() { tempImageStorage_ = {}; }

  /// Makes the three previews to fit into a box of pixels.
  void GeneratePreviews(int width, int height);
  void ResetPreviews();
  /// The stored preview of 1024 pixels, or null.
  const ExtendedPicture* MidSizePreview();
  /// The size that Image has.
  int Width();
  int Height();
  /// How the image is cut and turned.
  ImageGeometry Geometry() const;
  /// True if the rotation exchanges width and height.
  bool QuarterTurned() const { return Geometry().QuarterTurned(); }

  /// What the owner says of the photo, an XMP packet; empty for nothing.
  std::string MetadataPacket() const;

  /// An image that was pasted into the document, nil if there is none of that name.
  FolderItem PastedImage(std::string_view name) const;
  /// Takes a copy of `file` under that name, or gives the name up if nil. The copy lives with the
  /// document in memory; the package on disk changes when it is saved. False if it cannot be
  /// copied, or if the name is not free to use.
  [[nodiscard]] bool PastedImage(std::string_view name, const FolderItem& file);
  /// The same of a file in the folder for temporary files, which is the document's from now on.
  [[nodiscard]] bool AdoptPastedImage(std::string_view name, const FolderItem& file);
  /// All of them, as a render takes them along. The package's folder is read once.
  PastedFiles PastedImages() const;
  /// Those that no package holds yet.
  PastedFiles SessionImages() const;

  /// What stood at File when it was last read or written here, so that Save notices when another
  /// program changes it. Kept with edits that are brought back later.
  const std::string& StateOnDisk() const { return stateOnDisk_; }
  void StateOnDisk(std::string state) { stateOnDisk_ = std::move(state); }

  std::string Name;
  std::string Creator;
  std::string ContactLink;
  std::string CreatedWith;
  std::string Copyright;
  Date CreatedDate;
  /// The effect stacks, as the processor writes them.
  std::string StyleData;
  bool Dirty = false;

  /// Where the package is; may be a temporary folder.
  FolderItem File;
  /// The temporary package while the document has not been saved; nil afterwards.
  FolderItem tFile;
  /// Image to be copied into the package at the first save; nil for an image without a file.
  FolderItem originalImageFile;
  /// File name of the original inside the package; empty for the one-file form.
  std::string OriginalImageID;

  bool Crop = false;
  /// Left and top of the crop, and its size, as fractions of the image. A new document's crop tool
  /// starts a tenth inside the picture.
  Pair CropOffSet{0.1, 0.1};
  Pair CropSize{0.8, 0.8};
  /// 1 swaps width and height.
  int Orientation = 0;
  /// 0 none, 1 to 3 quarter turns clockwise.
  int Rotation = 0;
  /// 0 none, 1 horizontally, 2 vertically.
  int Flip = 0;

  /// The original, the image before the effects, and after them, at display size.
  Picture PreviewBefore;
  Picture PreviewBase;
  Picture PreviewAfter;

  std::string lastErrorMessage;
  /// What of the original could not be read; known once it was read.
  PictureDamage OriginalDamage;
  /// Empty if a picture that was made from this document may be written to `file`. Else the
  /// sentence why not: a damaged original may be read better one day, so it is never replaced by
  /// what came of it.
  std::string WhyNotWriteTo(const FolderItem& file) const;
  /// Where the original's own bytes can be had; nil if nowhere any more.
  FolderItem OriginalSource() const;
  /// Version read or last written.
  int FileDataVersion = 0;

 private:
  void SetDefaults();
  void MakeTemporaryPackage();
  /// The child of the package that holds the original; nil for a name that leaves the package.
  FolderItem OriginalFile() const;
  /// The original as HoldFiles keeps it, or nil.
  FolderItem HeldOriginal() const;
  /// Reads the original into its place. False, and lastErrorMessage says why, on failure.
  bool ReadOriginal(const FolderItem& file);

  // DocumentReader.cpp
  bool LoadPackage(const FolderItem& file);
  bool LoadOneFile(const FolderItem& file);
  bool ReadContainer(std::string_view bytes);
  bool ReadOldBody(std::string_view bytes);
  void processNIF(const IFFData& data);

  // DocumentWriter.cpp
  bool CreatePackage(const FolderItem& target);
  bool FillPackage(const FolderItem& package);
  bool SaveAs(const FolderItem& place, bool replaces);
  bool PutInPlace(const FolderItem& package, const FolderItem& target, bool replaces) const;
  bool WriteOriginal(const FolderItem& package);
  bool WriteMetadata(const FolderItem& package) const;
  bool WriteWhatWasRead(const FolderItem& package);
  /// Remembers what stands at File now.
  void Written();
  bool WriteSettings(const FolderItem& package);
  bool WritePreviews(const FolderItem& package);
  /// Brings the pasted pictures that the style names into a package.
  bool WritePictures(const FolderItem& package) const;
  /// True if all pictures that the style names can be had, or the user does without.
  bool PicturesAreThere() const;
  /// The same of the original, of which the pixels are left.
  bool OriginalIsThere() const;
  /// Takes out of the saved package what its stacks no longer name; the session keeps it.
  void DropPictures(const FolderItem& package);
  /// What stands there: a package's settings, or size and time of a file; empty for nothing.
  static std::string StateOf(const FolderItem& document);
  bool MayReplace(const FolderItem& package) const;
  /// False if a package that another program made of a one-file document names no original.
  bool KnowOriginal(const FolderItem& package);
  std::string SettingsBytes() const;

  class SessionPicture;
  using KeptPicture = std::shared_ptr<const SessionPicture>;
  /// The file under another name, or a copy of it, in the folder for temporary files; null if
  /// neither can be had.
  KeptPicture Hold(std::string_view name, const FolderItem& file) const;
  /// False for null.
  bool KeepForSession(std::string_view name, KeptPicture picture);

  Services services_;
  /// Pictures pasted since the document was opened; null for a name that was given up. Copies of a
  /// document share the files.
  std::map<std::string, KeptPicture, std::less<>> session_;
  /// The package's original, held for when it is gone.
  KeptPicture heldOriginal_;
  /// What originalImageFile was when it was read.
  std::string originalState_;
  /// The packet as the package held it when it was last within reach.
  mutable std::string heldPacket_;
  /// What a package's folder held.
  struct Listing {
    FolderItem File;
    FolderItem tFile;
    PastedFiles Files;
  };
  mutable std::optional<Listing> listed_;
  std::string stateOnDisk_;
  /// The style that the package holds.
  std::string savedStyle_;
  Picture tempImageStorage_;
  std::optional<ExtendedPicture> midSizePreview_;
};

}  // namespace brivolant
