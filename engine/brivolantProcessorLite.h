// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/ModuleRegistry.h"
#include "engine/StyleData.h"
#include "engine/pictures/BlendEffect.h"
#include "formats/PastedFiles.h"
#include "platform/services/Services.h"

namespace brivolant {

class BrivolantDocument;
class EffectPanel;
class MarkCanvas;
class PreviewDisplay;
class PreviewMaker;
struct ImageGeometry;
struct PreviewRequest;
struct PreviewResult;

/// Runs the effects of one open document: two stacks of modules, each over its own copy of the
/// image, composed foreground over background. Renders the preview and the full-size result, and
/// reads and writes the state of the stacks as style data.
///
/// Both stacks always hold every module; applying nothing means that all are disabled.
class brivolantProcessorLite {
 public:
  using StackList = std::vector<std::unique_ptr<effectModule>>;

  /// `registry` lists the modules of both stacks. Everything handed in must outlive the processor.
  brivolantProcessorLite(ModuleRegistry registry, const brivolant::Services& services);
  ~brivolantProcessorLite();
  brivolantProcessorLite(const brivolantProcessorLite&) = delete;
  brivolantProcessorLite& operator=(const brivolantProcessorLite&) = delete;

  /// Fills the stacks. Call it once before anything else.
  void Startup();
  /// New modules in their first order with their reset settings; blend settings to their defaults.
  void Reset();

  /// Lets the dice of every module fall as a number says. Each has a throw of its own, which
  /// depends on no other module.
  void Seed(std::uint32_t seed);
  /// The user's own reset of a module: its dice are thrown anew, too.
  void ResetSettings(effectModule& module);

  // The current stack.

  /// The last valid index; -1 for an empty stack.
  int Count() const;
  /// Null for an index out of range.
  effectModule* item(int index) const;
  /// Null, with a log line, for an unknown identifier.
  effectModule* ItemVIaID(std::string_view id) const;
  /// -1, with a log line, for an unknown identifier.
  int ItemPositionViaID(std::string_view id) const;
  /// Moves an item; a target out of range means the end.
  void ChangeItemOrder(int from, int to);
  /// Tells that a module was switched on or off.
  void EffectEnabledChanged(int index);
  void SelectEffect(int index);
  /// Makes another stack the current one and shows it.
  void ChangeStack(int stack);
  effectModule* SelectedEffect() const { return mSelectedeffect; }
  void SelectedEffect(effectModule* module);

  /// The state of both stacks and the blend settings.
  std::string StyleData() const;
  /// Restores it. Data with a wrong header changes nothing; of damaged data what can be read is
  /// used. Modules that the style does not name keep their settings.
  StyleFault StyleData(std::string_view bytes);

  // Rendering.

  /// Renders the preview; `full` drops all caches and previews first. Where myRenderer is set the
  /// old previews stay until the new ones come.
  void UpdatePreview(bool full);
  /// Renders the preview with the caches there are.
  void RunRoutine(bool full);
  /// For who renders elsewhere: raises UpdateStarted, and gives what the preview follows from now.
  PreviewRequest BeginPreview(bool full);
  /// The end of what was begun: shows the result, if there is one, and raises UpdateFinished.
  void EndPreview(const PreviewResult* result, bool full);
  /// The picture for the display, with the selected module's marks; nil without a document.
  Picture Preview();
  /// Draws the selected module's marks on a part of the photo that is shown enlarged.
  void DrawMarks(MarkCanvas& canvas);
  /// The full-size result. Without any module enabled it equals the source. Nil if Progress
  /// stopped it. `pasted` are the pictures that modules may lay over it: a document's
  /// PastedImages, or none where there is no document.
  Picture Process(Picture source, PastedFiles pasted);
  /// The same of a picture that was reduced or enlarged: it shows what the full-size result does,
  /// at its size. `scale` is what PreviewScale gives for it.
  Picture ProcessReduced(Picture reduced, double scale, PastedFiles pasted);
  /// Runs one stack from an index on over a picture.
  Picture Process(Picture& picture, int stack, int start, PastedFiles pasted);
  /// What a module asks for while it is applied: the file of a picture that was pasted under that
  /// name, or nil.
  FolderItem PastedImage(std::string_view name) const;
  /// Told by a module that could not do its part; once for each sentence.
  void Warn(const std::string& sentence);
  /// What could not be done since Process, or since the preview was made wholly anew.
  const std::vector<std::string>& Warnings() const { return warnings_; }
  void ResetEffectCache();
  void rebuildCurrentPointCache();
  /// A preview is being rendered elsewhere. What is rendered here is done when a call returns.
  bool Running() const;

  int BlendMode() const { return Blender.BlendMode; }
  void BlendMode(int mode) { Blender.BlendMode = mode; }

  /// What the modules work with.
  const brivolant::Services& Services() const { return services_; }

  /// The factor by which a picture differs from the reference size of 640 pixels.
  static double ConsistencyScaleFor(const Picture& picture);
  static double ConsistencyScaleFor(int width, int height);
  /// The scale of a preview's lengths: that of the full picture, reduced as the preview is. `base`
  /// is the preview before the effects.
  static double PreviewScale(const Picture& original, const ImageGeometry& geometry,
                             const Picture& base);

  std::vector<StackList> stacks;  ///< kForeground and kBackground.
  EffectPanel* myEffectEditor = nullptr;
  PreviewDisplay* myDisplay = nullptr;
  /// Renders the previews elsewhere; null to render them within the calls.
  PreviewMaker* myRenderer = nullptr;
  BrivolantDocument* Document = nullptr;
  int CurrentStack = kForeground;
  /// Opacity of the foreground, 0.0 to 1.0.
  float BlendAlpha = 1.0F;
  /// The last render took more than 0.4 seconds.
  bool nonLiveMode = false;
  /// Microseconds that the last render took.
  double debugProcessTime = 0;
  double consistencyScale = 1;
  /// Index from which a preview is rendered on cacheCurrentStack; -1 is the whole stack.
  int cacheCurrentStackPoint = -1;
  /// Where the foreground lies over the background; empty is full size. Written by the foreground's
  /// scale module while it is applied; every render begins without a placement.
  std::optional<Point> foregroundScaleTopleft;
  std::optional<Point> foregroundScaleSize;

  /// Asked after each module of a full-size render, with what is done from 0 to 1; false stops the
  /// render.
  std::function<bool(double done)> Progress;

  // Raised to the owner.
  std::function<void()> UpdateStarted;
  std::function<void()> UpdateFinished;
  std::function<void()> SelectedEffectChanged;
  /// A warning that was not told yet.
  std::function<void(const std::string& sentence)> Warned;
  /// Raised for every module that Reset makes.
  std::function<void(effectModule&)> ModuleCreated;

 private:
  friend class PreviewRenderer;
  StackList& Current() { return stacks.at(static_cast<std::size_t>(CurrentStack)); }
  const StackList& Current() const { return stacks.at(static_cast<std::size_t>(CurrentStack)); }
  int PositionOf(std::string_view id) const;
  void BuildStacks();
  void CheckIdentifiers();
  void ApplyStyle(const Dictionary& stack, int number);
  Dictionary SettingsOf(const StackList& stack) const;
  /// Applies modules `first` to `last` - 1; consecutive tone curves go over the pixels once.
  void RunModules(const StackList& stack, int first, int last, Picture& picture);
  Picture RunStack(Picture& picture, int stack, int start, double scale);
  double DocumentScale() const;
  void RenderDocument();
  /// Applies the stacks to the preview's base, with what the caches hold of it. Nothing once
  /// `goOn`, asked before each module, says no.
  std::optional<Picture> RenderPreview(const Picture& base, double scale,
                                       const std::function<bool()>& goOn);
  void MakePointCache(const Picture& base, double scale);
  Picture ProcessLayers(Picture source, double scale);
  /// True if nothing of the background can show through a foreground that covers it.
  bool ForegroundIsOpaque() const { return BlendMode() == 0 && BlendAlpha >= 1.0F; }
  bool ForegroundMayBePlaced() const;
  /// Asks before one more module; true once the render is to stop.
  bool Stopped();
  int EnabledModules() const;
  Picture Compose(Picture background, const Picture& foreground);

  ModuleRegistry registry_;
  PastedFiles pasted_;
  std::vector<std::string> warnings_;
  brivolant::Services services_;
  BlendEffect Blender;
  effectModule* mSelectedeffect = nullptr;
  int lastWidth = 0;
  int lastHeight = 0;
  Picture cacheBackgroundLayer;
  Picture cacheCurrentStack;
  // The placement that the modules in cacheCurrentStack asked for.
  std::optional<Point> cachedTopleft_;
  std::optional<Point> cachedSize_;
  Picture PostBuffer;
  /// Asked before each module of the render under way; empty for one that nothing stops.
  std::function<bool()> goOn_;
  bool stopped_ = false;
};

}  // namespace brivolant
