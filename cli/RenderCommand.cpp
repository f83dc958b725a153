// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <charconv>
#include <chrono>
#include <map>

#include "cli/Commands.h"
#include "cli/Outputs.h"
#include "cli/RenderJob.h"
#include "cli/Shortcomings.h"
#include "cli/Texts.h"
#include "effects/EffectRegistry.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "export/CarryMetadata.h"
#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"
#include "platform/files/AtomicFile.h"

namespace brivolant::cli {
namespace {

double Since(std::chrono::steady_clock::time_point& last) {
  const auto now = std::chrono::steady_clock::now();
  const double milliseconds = std::chrono::duration<double, std::milli>(now - last).count();
  last = now;
  return milliseconds;
}

}  // namespace

std::string FormatOf(const FolderItem& file) {
  for (const FileType* type : ImagesWritableMac::kTypes) {
    if (FolderitemExtensions::isFileType(file, type)) return std::string(type->Identifier);
  }
  return {};
}

void AddMetadataOption(CLI::App& command, OutputOptions& options) {
  using enum MetadataCopy::Rule;
  const std::map<std::string, MetadataCopy::Rule> rules{
      {"all", kAll}, {"without-place", kWithoutPlace}, {"none", kNone}};
  command.add_option("--metadata", options.metadata, texts::kCarried.Text())
      ->option_text("all|without-place|none")
      ->transform(CLI::CheckedTransformer(rules, CLI::ignore_case));
}

bool OpenInput(const FolderItem& input, BrivolantDocument& document,
               brivolantProcessorLite& processor, Worker& worker, std::string& error) {
  processor.Startup();
  if (!FolderitemExtensions::isFileType(input, &InternalFileTypes::BrivolantPhotosDocument)) {
    if (document.ReadImage(input)) return true;
    error = document.lastErrorMessage;
    return false;
  }
  if (!LoadDocument(document, input, worker, error)) return false;
  if (!document.StyleData.empty() && processor.StyleData(document.StyleData) != StyleFault::kNone) {
    error = texts::Of(texts::kDamagedStyle, input.DisplayName());
    return false;
  }
  return true;
}

bool RenderFile(const FolderItem& input, const FolderItem& output, const EditOptions& edits,
                const OutputOptions& options, Worker& worker, RenderTimes& times,
                std::string* style, std::string& error) {
  auto clock = std::chrono::steady_clock::now();
  BrivolantDocument document(worker.services);
  brivolantProcessorLite processor(EffectRegistry(), worker.services);
  if (!OpenInput(input, document, processor, worker, error) ||
      !edits.Apply(document, processor, error)) {
    return false;
  }
  if (style != nullptr) *style = processor.StyleData();
  Picture picture = document.Image();
  document.DropOriginal();
  if (picture.IsNil()) {
    error = document.lastErrorMessage;
    return false;
  }
  if (!TakesDamage(document.OriginalDamage, options.strict, error)) return false;
  times.decode = Since(clock);
  picture = processor.Process(std::move(picture), document.PastedImages());
  TellShortcomings(processor, input);
  if (options.fit) {
    picture = SharedPictureEffects::Scale(picture, static_cast<int>(options.fit->Left),
                                          static_cast<int>(options.fit->Right),
                                          SharedPictureEffects::kScaleToFit);
  }
  times.render = Since(clock);
  ImageFile file;
  file.Folderitem = output;
  file.FileType = FormatOf(output);
  file.AddPicture(picture);
  picture = {};
  if (ExtendedPicture* first = file.FirstImage()) {
    first->CompressionQuality = static_cast<float>(options.quality) / 100;
  }
  const bool saved = file.SaveUnderThisName();
  error = file.LastError;
  if (saved) {
    const std::string left =
        CarryMetadata({document.OriginalSource(), document.MetadataPacket(), options.metadata,
                       worker.services.UserDetails.CreatedWith()},
                      file.FirstImage()->Picture(), output, file.FileType, output.DisplayName());
    if (!left.empty()) PrintError(left);
  }
  times.encode = Since(clock);
  return saved;
}

namespace {

struct RenderOptions {
  EditOptions edits;
  OutputOptions output;
  std::vector<std::string> inputs;
  std::string file;
  std::string folder;
  std::string saveStyle;
  std::string fit;
  int jobs = 0;
  bool progress = false;
  bool timing = false;
};

bool ParseFit(const std::string& text, std::optional<Pair>& fit) {
  const auto fields = Split(text, 'x');
  int width = 0;
  int height = 0;
  const auto number = [](std::string_view field, int& value) {
    const auto end = field.data() + field.size();
    return std::from_chars(field.data(), end, value).ptr == end && value > 0;
  };
  if (fields.size() != 2 || !number(fields[0], width) || !number(fields[1], height)) return false;
  fit = Pair{static_cast<double>(width), static_cast<double>(height)};
  return true;
}

/// Empty, or the sentence why the outputs are chosen wrongly.
std::string WrongOutputs(const RenderOptions& options) {
  if (options.file.empty() == options.folder.empty()) return texts::kNeedsOutput.Text();
  if (!options.folder.empty()) return {};
  if (options.inputs.size() > 1) return texts::kOneOutput.Text();
  const FolderItem output(options.file);
  return FormatOf(output).empty() ? texts::Of(texts::kUnknownExtension, output.DisplayName())
                                  : std::string();
}

/// The outputs of the command. Empty, with the sentence in `error`, if one of them, or the style
/// that is saved, would take the place of what is read.
std::vector<FolderItem> ChooseOutputs(RenderOptions& options, std::string& error) {
  if (!options.saveStyle.empty()) {
    // The style itself may be the one that was read.
    error = InputFiles(options.inputs).WhyNotWriteTo(FolderItem(options.saveStyle));
    if (!error.empty()) return {};
  }
  std::vector<std::string> all = options.inputs;
  if (!options.edits.Style().empty()) all.push_back(options.edits.Style());
  const InputFiles read(all);
  const FolderItem folder(options.folder);
  const FolderItem file(options.file);
  error = folder ? read.WhyNotWriteInto(folder) : read.WhyNotWriteTo(file);
  if (!error.empty()) return {};
  if (!folder) return {file};
  return OutputsIn(folder, options.inputs, read, [](const FolderItem& input) {
    return FormatOf(input).empty() ? "jpg" : FolderitemExtensions::FileExtension(input);
  });
}

void PrintTiming(const FolderItem& input, const RenderTimes& times) {
  PrintJson(QJsonObject{{ToQt("file"), ToQt(input.ShellPath())},
                        {ToQt("decode_ms"), times.decode},
                        {ToQt("render_ms"), times.render},
                        {ToQt("encode_ms"), times.encode},
                        {ToQt("peak_memory_bytes"), static_cast<double>(PeakMemory())}},
            false);
}

int RunRender(RenderOptions& options, const CLI::App& command, bool verbose) {
  std::string error = WrongOutputs(options);
  if (!options.fit.empty() && !ParseFit(options.fit, options.output.fit)) {
    PrintError(WithPlaceholders(texts::kBadFit.Text(), {{"<text>", options.fit}}));
    return kWrongUse;
  }
  if (!error.empty() || !options.edits.Collect(command, error)) {
    PrintError(error);
    return kWrongUse;
  }
  const std::vector<FolderItem> outputs = ChooseOutputs(options, error);
  if (outputs.empty()) {
    PrintError(error);
    return kFileFailed;
  }
  if (!options.folder.empty()) {
    const FolderItem folder(options.folder);
    if (const std::error_code failure = folder.CreateAsFolder()) {
      PrintError(texts::Of(texts::kCannotMakeFolder, folder.DisplayName(), failure.message()));
      return kFileFailed;
    }
  }
  const int count = static_cast<int>(options.inputs.size());
  ProgressBar bar(options.progress, count);
  std::string style;
  int failed = RunJobs(count, options.jobs, [&](int index) {
    Worker worker(verbose);
    RenderTimes times;
    std::string why;
    const FolderItem input(options.inputs[static_cast<std::size_t>(index)]);
    const bool done = Guarded(input, why, [&] {
      return RenderFile(input, outputs[static_cast<std::size_t>(index)], options.edits,
                        options.output, worker, times, index == 0 ? &style : nullptr, why);
    });
    if (!done) PrintError(why);
    if (done && options.timing) PrintTiming(input, times);
    bar.Advance();
    return done;
  });
  if (!options.saveStyle.empty() && !style.empty()) {
    const FolderItem file(options.saveStyle);
    if (const std::error_code failure = WriteFileAtomically(file, style)) {
      PrintError(texts::Of(texts::kCannotWrite, file.DisplayName(), failure.message()));
      ++failed;
    }
  }
  return failed == 0 ? kDone : kFileFailed;
}

}  // namespace

namespace {

/// Declares all options of a render and what runs them.
void DeclareRender(CLI::App& command, const std::shared_ptr<RenderOptions>& options,
                   const Common& common, Action& action) {
  command.add_option("INPUT", options->inputs, texts::kInput.Text())->required();
  command.add_option("-o,--output", options->file, texts::kOutput.Text());
  command.add_option("--out-dir", options->folder, texts::kOutDir.Text());
  options->edits.Declare(command);
  command.add_option("--save-style", options->saveStyle, texts::kSaveStyle.Text());
  command.add_option("--fit", options->fit, texts::kFit.Text());
  AddMetadataOption(command, options->output);
  command.add_option("--quality", options->output.quality, texts::kQuality.Text())
      ->check(CLI::Range(1, 100));
  command.add_flag("--strict", options->output.strict, texts::kStrict.Text());
  command.add_option("--jobs", options->jobs, texts::kJobs.Text())->check(CLI::Range(0, 256));
  command.add_flag("--progress", options->progress, texts::kProgress.Text());
  command.add_flag("--timing", options->timing, texts::kTiming.Text());
  command.callback([options, &command, &common, &action] {
    action = [options, &command, &common] { return RunRender(*options, command, common.verbose); };
  });
}

}  // namespace

void AddRenderCommand(CLI::App& program, const Common& common, Action& action) {
  DeclareRender(*program.add_subcommand("render", texts::kRender.Text()),
                std::make_shared<RenderOptions>(), common, action);
}

void AddApplyCommand(CLI::App& styles, const Common& common, Action& action) {
  auto options = std::make_shared<RenderOptions>();
  CLI::App& command = *styles.add_subcommand("apply", texts::kStylesApply.Text());
  command.add_option("STYLE", options->edits.Style(), texts::kStyleName.Text())->required();
  DeclareRender(command, options, common, action);
}

}  // namespace brivolant::cli
