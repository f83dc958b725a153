// SPDX-License-Identifier: MIT
#include "effects/finishes/EffectModuleOverlay.h"

#include <algorithm>
#include <cmath>

#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "platform/files/AtomicFile.h"
#include "platform/values/SharedComponents.h"

namespace brivolant {

EffectModuleOverlay::Ready EffectModuleOverlay::MakeReady(const FolderItem& file, std::string name,
                                                          const FolderItem& copy) {
  Ready ready{std::move(name), {}, {}, {}, {}};
  ImageIO::OpenedPicture opened = ImageIO::OpenFirstPicture(file);
  ready.Error = std::move(opened.Error);
  if (opened.Pixels.IsNil() || copy.IsNil()) return ready;
  if (!(file == copy)) {
    if (const std::error_code error = CopyFileAtomically(file, copy)) {
      ready.Error = error.message();
      return ready;
    }
  }
  ready.Copy = copy;
  ready.Pixels = std::move(opened.Pixels);
  ready.Damage = std::move(opened.Damage.Warning);
  return ready;
}

bool EffectModuleOverlay::Take(Ready ready) {
  if (myProcessor == nullptr || myProcessor->Document == nullptr || ready.Pixels.IsNil() ||
      !myProcessor->Document->AdoptPastedImage(ready.Name, ready.Copy)) {
    return false;
  }
  myPIctureID = ready.Name;
  overlayPicture = std::move(ready.Pixels);
  overlayDamage_ = std::move(ready.Damage);
  overlayFile_ = myProcessor->Document->PastedImage(ready.Name);
  overlayType = kOfPicture;
  return true;
}

bool EffectModuleOverlay::SetAsMyPicture(const FolderItem& file) {
  if (myProcessor == nullptr || myProcessor->Document == nullptr) return false;
  const Services& services = myProcessor->Services();
  const std::string name = otherSharedComponents::NewGUID(services.Random);
  Ready ready = MakeReady(file, name, services.TemporaryFiles.Child(name));
  const std::string error = ready.Error;
  if (Take(std::move(ready))) return true;
  FolderitemExtensions::StandardFileErrorDialog(file, FolderitemExtensions::kRead, error,
                                                services.Dialogs);
  return false;
}

void EffectModuleOverlay::SettingsReset() {
  // The picture stays at hand: choosing the type again shows it again.
  const std::string kept = myPIctureID.Value();
  effectModule::SettingsReset();
  myPIctureID = kept;
}

bool EffectModuleOverlay::ButtonPushed(int index) {
  if (index != kButtonRow || !ChoosePicture) return true;
  const FolderItem file = ChoosePicture();
  // True means that nothing is to be shown anew.
  return file.IsNil() || !SetAsMyPicture(file);
}

void EffectModuleOverlay::ApplyEffect(Picture& picture, double) {
  if (overlayType == kOfPicture) return LayPicture(picture);
  AdvancedGraphics g(picture);
  const CGRect whole = AdvancedGraphicsModule::MakeCGRect(0, 0, static_cast<float>(picture.Width()),
                                                          static_cast<float>(picture.Height()));
  if (overlayType == 0) {
    g.SetFillColor(overlayColor, Alpha);
    g.DrawRect(whole, kFill);
  } else if (overlayType == 1) {
    g.DrawGradient(whole, overlayColor, overlaySecondColor, Alpha, Alpha);
  }
}

void EffectModuleOverlay::LayPicture(Picture& picture) {
  // Nothing was chosen yet.
  if (myProcessor == nullptr || myPIctureID.Value().empty()) return;
  const FolderItem file = myProcessor->PastedImage(myPIctureID.Value());
  if (overlayPicture.IsNil() || !(file == overlayFile_)) {
    ImageIO::OpenedPicture opened;
    if (!file.IsNil()) opened = ImageIO::OpenFirstPicture(file);
    overlayFile_ = file;
    overlayPicture = std::move(opened.Pixels);
    overlayDamage_ = std::move(opened.Damage.Warning);
  }
  if (overlayPicture.IsNil()) {
    myProcessor->Warn(WithPlaceholders(kMissing.Text(), {{"<name>", kName.Text()}}));
    return;
  }
  if (!overlayDamage_.empty()) myProcessor->Warn(overlayDamage_);
  const double w = picture.Width();
  const double h = picture.Height();
  const double bw = std::trunc(w * PIctureScale);
  const double bh = std::trunc(h * PIctureScale);
  const double ratio = std::max(bw / overlayPicture.Width(), bh / overlayPicture.Height());
  const double nw = std::trunc(overlayPicture.Width() * ratio);
  const double nh = std::trunc(overlayPicture.Height() * ratio);
  if (nw < 1 || nh < 1) return;
  AdvancedGraphics g(picture);
  g.Alpha(Alpha);
  g.DrawImage(overlayPicture, AdvancedGraphicsModule::MakeCGRect(
                                  static_cast<float>(std::trunc(w * PictureOffSetX - nw / 2)),
                                  static_cast<float>(std::trunc(h * PictureOffsetY - nh / 2)),
                                  static_cast<float>(nw), static_cast<float>(nh)));
}

bool EffectModuleOverlay::MouseActionDown(float x, float y, bool& render) {
  lastOffsetX = x - PictureOffSetX;
  lastOffsetY = y - PictureOffsetY;
  render = true;
  return true;
}

void EffectModuleOverlay::MouseActionDrag(float x, float y) {
  PictureOffSetX = x - lastOffsetX;
  PictureOffsetY = y - lastOffsetY;
}

brivolant::MouseCursor EffectModuleOverlay::GetMouseCursor(int pointerState) {
  if (overlayType != kOfPicture) return brivolant::MouseCursor::kNone;
  if (pointerState == kPointerDown) return brivolant::MouseCursor::kClosedHand;
  return pointerState == kPointerLeft ? brivolant::MouseCursor::kNone
                                      : brivolant::MouseCursor::kOpenHand;
}

}  // namespace brivolant
