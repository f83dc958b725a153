// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <QJsonArray>

#include "cli/Commands.h"
#include "cli/Outputs.h"
#include "cli/RenderJob.h"
#include "cli/Shortcomings.h"
#include "cli/Texts.h"
#include "effects/EffectRegistry.h"
#include "formats/ImageFile.h"

namespace brivolant::cli {
namespace {

struct DocumentOptions {
  EditOptions edits;
  OutputOptions output;
  std::string image;
  std::string package;
  std::string file;
  bool json = false;
};

int Fail(const std::string& sentence, ExitCode code = kFileFailed) {
  PrintError(sentence);
  return code;
}

int Create(DocumentOptions& options, const CLI::App& command, bool verbose) {
  std::string error;
  if (!options.edits.Collect(command, error)) return Fail(error, kWrongUse);
  const FolderItem package = BrivolantDocument::PackageFor(FolderItem(options.package));
  if (package.Exists()) return Fail(texts::Of(texts::kExists, package.DisplayName()));
  const FolderItem image(options.image);
  error = InputFiles({options.image}).WhyNotWriteTo(package);
  if (!error.empty()) return Fail(error);
  Worker worker(verbose);
  BrivolantDocument document(worker.services);
  brivolantProcessorLite processor(EffectRegistry(), worker.services);
  if (!OpenInput(image, document, processor, worker, error) ||
      !options.edits.Apply(document, processor, error)) {
    return Fail(error);
  }
  constexpr int kPreviewSize = 1024;
  document.GeneratePreviews(kPreviewSize, kPreviewSize);
  if (document.PreviewBase.IsNil()) return Fail(document.lastErrorMessage);
  if (!TakesDamage(document.OriginalDamage, options.output.strict, error)) return Fail(error);
  const double scale = brivolantProcessorLite::PreviewScale(
      document.ImageOriginal(), document.Geometry(), document.PreviewBase);
  document.PreviewAfter =
      processor.ProcessReduced(document.PreviewBase, scale, document.PastedImages());
  TellShortcomings(processor, image);
  document.StyleData = processor.StyleData();
  if (document.Save(package)) return kDone;
  return Fail(texts::Of(texts::kDocumentNotSaved, package.DisplayName(), worker.dialogs.Take()));
}

QJsonObject Describe(BrivolantDocument& document) {
  QJsonObject object{{ToQt("name"), ToQt(document.Name)},
                     {ToQt("creator"), ToQt(document.Creator)},
                     {ToQt("contactLink"), ToQt(document.ContactLink)},
                     {ToQt("copyright"), ToQt(document.Copyright)},
                     {ToQt("createdWith"), ToQt(document.CreatedWith)},
                     {ToQt("createdDate"), ToQt(document.CreatedDate.Text())},
                     {ToQt("version"), document.FileDataVersion},
                     {ToQt("originalImageID"), ToQt(document.OriginalImageID)},
                     {ToQt("crop"), document.Crop},
                     {ToQt("cropOffset"), ToJson(document.CropOffSet)},
                     {ToQt("cropSize"), ToJson(document.CropSize)},
                     {ToQt("rotation"), document.Rotation},
                     {ToQt("flip"), document.Flip},
                     {ToQt("orientation"), document.Orientation},
                     {ToQt("styleBytes"), static_cast<double>(document.StyleData.size())}};
  if (!document.ImageOriginal().IsNil()) {
    object.insert(ToQt("width"), document.Width());
    object.insert(ToQt("height"), document.Height());
  }
  return object;
}

int Info(const DocumentOptions& options, bool verbose) {
  Worker worker(verbose);
  BrivolantDocument document(worker.services);
  std::string error;
  if (!LoadDocument(document, FolderItem(options.package), worker, error)) return Fail(error);
  const QJsonObject object = Describe(document);
  if (document.ImageOriginal().IsNil()) PrintError(document.lastErrorMessage);
  (void)TakesDamage(document.OriginalDamage, false, error);
  if (options.json) {
    PrintJson(object, true);
    return kDone;
  }
  for (auto entry = object.begin(); entry != object.end(); ++entry) {
    const QJsonValue value = entry.value();
    const QString text = value.isArray() ? QString::number(value.toArray().at(0).toDouble()) +
                                               QLatin1String(", ") +
                                               QString::number(value.toArray().at(1).toDouble())
                                         : value.toVariant().toString();
    PrintLine(entry.key().toStdString() + ": " + text.toStdString());
  }
  return kDone;
}

int Render(DocumentOptions& options, const CLI::App& command, bool verbose) {
  std::string error;
  if (!options.edits.Collect(command, error)) return Fail(error, kWrongUse);
  const FolderItem output(options.file);
  if (FormatOf(output).empty()) {
    return Fail(texts::Of(texts::kUnknownExtension, output.DisplayName()), kWrongUse);
  }
  std::vector<std::string> inputs{options.package};
  if (!options.edits.Style().empty()) inputs.push_back(options.edits.Style());
  error = InputFiles(inputs).WhyNotWriteTo(output);
  if (!error.empty()) return Fail(error);
  Worker worker(verbose);
  RenderTimes times;
  if (RenderFile(FolderItem(options.package), output, options.edits, options.output, worker, times,
                 nullptr, error)) {
    return kDone;
  }
  return Fail(error);
}

}  // namespace

void AddDocumentCommand(CLI::App& program, const Common& common, Action& action) {
  CLI::App* document = program.add_subcommand("document", texts::kDocument.Text());
  document->require_subcommand(1);
  auto options = std::make_shared<DocumentOptions>();

  CLI::App* create = document->add_subcommand("create", texts::kDocumentCreate.Text());
  create->add_option("IMAGE", options->image, texts::kImage.Text())->required();
  create->add_option("PACKAGE", options->package, texts::kPackage.Text())->required();
  options->edits.Declare(*create);
  create->add_flag("--strict", options->output.strict, texts::kStrict.Text());
  create->callback([options, create, &common, &action] {
    action = [options, create, &common] { return Create(*options, *create, common.verbose); };
  });

  CLI::App* info = document->add_subcommand("info", texts::kDocumentInfo.Text());
  info->add_option("PACKAGE", options->package, texts::kPackage.Text())->required();
  info->add_flag("--json", options->json, texts::kJson.Text());
  info->callback([options, &common, &action] {
    action = [options, &common] { return Info(*options, common.verbose); };
  });

  CLI::App* render = document->add_subcommand("render", texts::kDocumentRender.Text());
  render->add_option("PACKAGE", options->package, texts::kPackage.Text())->required();
  render->add_option("-o,--output", options->file, texts::kOutput.Text())->required();
  render->add_flag("--strict", options->output.strict, texts::kStrict.Text());
  AddMetadataOption(*render, options->output);
  render->add_option("--quality", options->output.quality, texts::kQuality.Text())
      ->check(CLI::Range(1, 100));
  render->callback([options, render, &common, &action] {
    action = [options, render, &common] { return Render(*options, *render, common.verbose); };
  });
}

}  // namespace brivolant::cli
