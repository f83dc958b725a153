// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <algorithm>

#include "cli/Commands.h"
#include "cli/EditOptions.h"
#include "cli/Outputs.h"
#include "cli/Support.h"
#include "cli/Texts.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "effects/styles/StyleSource.h"
#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"
#include "platform/files/AtomicFile.h"

namespace brivolant::cli {
namespace {

constexpr int kEnglish = 0;
constexpr int kPreviewSide = 100;

/// Category by its index in a file; empty for one that no bar shows.
std::string CategoryOf(const OneClickWonder& style) {
  const auto& names = OneClickWonderStorage::CategoryName;
  const bool known = style.Category >= 0 && style.Category < static_cast<int>(names.size());
  return known ? names.at(static_cast<std::size_t>(style.Category)).English : "";
}

/// A style in English, or in whatever language has a name.
std::string NameOf(const OneClickWonder& style) {
  const std::string name = style.Name(kEnglish);
  return name.empty() ? style.Name() : name;
}

QJsonObject Described(const OneClickWonder& style) {
  return {{ToQt("name"), ToQt(NameOf(style))},
          {ToQt("description"), ToQt(style.Description(kEnglish))},
          {ToQt("category"), ToQt(CategoryOf(style))},
          {ToQt("maker"), ToQt(style.Creator)},
          {ToQt("contact"), ToQt(style.ContactLink)},
          {ToQt("createdWith"), ToQt(style.CreatedWith)},
          {ToQt("created"), ToQt(style.CreationDate.Text())},
          {ToQt("preview"), style.HasPreview()},
          {ToQt("file"), ToQt(style.File.ShellPath())}};
}

int List(const std::string& folder, bool json, bool verbose) {
  Worker worker(verbose);
  OneClickWonderStorage storage(worker.services);
  if (folder.empty()) {
    storage.Load();
  } else if (const FolderItem own(folder); own.Directory()) {
    storage.AddFolder(own);
  } else {
    PrintError(texts::Of(texts::kCannotRead, own.DisplayName()));
    return kFileFailed;
  }
  QJsonArray styles;
  std::string category = "-";
  std::vector<OneClickWonderStorage::Style> sorted = storage.Wonders();
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto& a, const auto& b) { return a->Category < b->Category; });
  for (const auto& style : sorted) {
    styles.append(Described(*style));
    if (json) continue;
    if (CategoryOf(*style) != category) {
      category = CategoryOf(*style);
      PrintLine(category.empty() ? texts::kNoCategory.Text() : category);
    }
    const std::string about = style->Description(kEnglish);
    PrintLine("  " + NameOf(*style) + (about.empty() ? "" : ": " + about));
  }
  if (json) PrintJson(styles, true);
  return kDone;
}

/// The style of a file or of a name; null, and the sentence is printed.
std::shared_ptr<OneClickWonder> Find(const std::string& text, Worker& worker) {
  std::string error;
  auto style = FindStyle(text, worker, error);
  if (style == nullptr) PrintError(error);
  return style;
}

int Info(const std::string& text, bool json, bool verbose) {
  Worker worker(verbose);
  const auto style = Find(text, worker);
  if (style == nullptr) return kFileFailed;
  if (json) {
    PrintJson(Described(*style), true);
    return kDone;
  }
  PrintLine(StyleSource::Write(*style, worker.services));
  return kDone;
}

struct MakeOptions {
  std::string source;
  std::string output;
  std::string picture;
};

int Make(const MakeOptions& options, bool verbose) {
  Worker worker(verbose);
  const FolderItem source(options.source);
  const FolderItem output(options.output);
  const auto text = ReadFile(source);
  if (!text) {
    PrintError(texts::Of(texts::kCannotRead, source.DisplayName()));
    return kFileFailed;
  }
  if (!FolderitemExtensions::isFileType(output,
                                        &InternalFileTypes::BrivolantPhotosOneClickWonder)) {
    PrintError(texts::Of(texts::kNotOneClick, output.DisplayName()));
    return kWrongUse;
  }
  std::string error = InputFiles({options.source, options.picture}).WhyNotWriteTo(output);
  if (!error.empty()) {
    PrintError(error);
    return kFileFailed;
  }
  OneClickWonder style(worker.services);
  style.Category = OneClickWonderStorage::kUsersCategory;
  style.Creator = worker.user.FullName();
  style.ContactLink = worker.user.ContactLink();
  if (!StyleSource::Read(*text, worker.services, style, error)) {
    PrintError(source.DisplayName() + ": " + error);
    return kFileFailed;
  }
  Picture shown = OneClickWonderStorage::PreviewImage();
  if (!options.picture.empty()) {
    shown = ImageIO::OpenAsPictureUsingImageIO(FolderItem(options.picture), error);
    if (shown.IsNil()) {
      PrintError(error);
      return kFileFailed;
    }
  }
  style.Preview(StyleSource::Render(style.StyleData, shown, kPreviewSide, worker.services));
  if (!style.Save(output)) {
    PrintError(style.LastErrorMessage);
    return kFileFailed;
  }
  return kDone;
}

int Extract(const std::string& text, const std::string& output, bool verbose) {
  Worker worker(verbose);
  const auto style = Find(text, worker);
  if (style == nullptr) return kFileFailed;
  const FolderItem file(output);
  if (const std::string why = InputFiles({text}).WhyNotWriteTo(file); !why.empty()) {
    PrintError(why);
    return kFileFailed;
  }
  if (const std::error_code failure =
          WriteFileAtomically(file, StyleSource::Write(*style, worker.services))) {
    PrintError(texts::Of(texts::kCannotWrite, file.DisplayName(), failure.message()));
    return kFileFailed;
  }
  return kDone;
}

}  // namespace

void AddStylesCommand(CLI::App& program, const Common& common, Action& action) {
  CLI::App* styles = program.add_subcommand("styles", texts::kStyles.Text());
  styles->require_subcommand(1);

  CLI::App* list = styles->add_subcommand("list", texts::kStylesList.Text());
  auto folder = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  list->add_option("FOLDER", *folder, texts::kStylesFolder.Text());
  list->add_flag("--json", *json, texts::kJson.Text());
  list->callback([=, &common, &action] {
    action = [=, &common] { return List(*folder, *json, common.verbose); };
  });

  CLI::App* info = styles->add_subcommand("info", texts::kStylesInfo.Text());
  auto style = std::make_shared<std::string>();
  info->add_option("STYLE", *style, texts::kStyleName.Text())->required();
  info->add_flag("--json", *json, texts::kJson.Text());
  info->callback([=, &common, &action] {
    action = [=, &common] { return Info(*style, *json, common.verbose); };
  });

  AddApplyCommand(*styles, common, action);

  CLI::App* make = styles->add_subcommand("make", texts::kStylesMake.Text());
  auto options = std::make_shared<MakeOptions>();
  make->add_option("SOURCE", options->source, texts::kStylesSource.Text())->required();
  make->add_option("-o,--output", options->output, texts::kStylesOutput.Text())->required();
  make->add_option("--preview", options->picture, texts::kStylesPreview.Text());
  make->callback(
      [=, &common, &action] { action = [=, &common] { return Make(*options, common.verbose); }; });

  CLI::App* extract = styles->add_subcommand("extract", texts::kStylesExtract.Text());
  auto output = std::make_shared<std::string>();
  extract->add_option("STYLE", *style, texts::kStyleName.Text())->required();
  extract->add_option("-o,--output", *output, texts::kStylesSource.Text())->required();
  extract->callback([=, &common, &action] {
    action = [=, &common] { return Extract(*style, *output, common.verbose); };
  });
}

}  // namespace brivolant::cli
