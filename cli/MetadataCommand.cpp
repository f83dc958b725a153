// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <array>
#include <cmath>
#include <optional>

#include "app/session/FileInfo.h"
#include "cli/Commands.h"
#include "cli/Support.h"
#include "cli/Texts.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/DocumentMetadata.h"
#include "metadata/ImageMetaData.h"
#include "metadata/MetadataCopy.h"
#include "metadata/MetadataFields.h"
#include "metadata/MetadataWriter.h"
#include "metadata/Sidecar.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/values/Numbers.h"
#include "platform/values/Text.h"

namespace brivolant::cli {
namespace {

struct MetadataOptions {
  std::vector<std::string> inputs;
  bool json = false;
  std::vector<std::string> set;
  std::vector<std::string> add;
  std::vector<std::string> remove;
  std::string strip;
  std::string from;

  bool Writes() const {
    return !set.empty() || !add.empty() || !remove.empty() || !strip.empty() || !from.empty();
  }
};

/// Of a block whose values are bytes though their type says text.
enum class Form { kTyped, kText, kBytes };

struct Listed {
  std::string_view Name;
  const TiffDataCoreClass* Data;
  Form Is = Form::kTyped;
};

std::vector<Listed> Blocks(const ImageMetaData& data) {
  std::vector<Listed> blocks;
  for (const auto& [name, block] : data.Blocks()) {
    const bool bytes = name == "Photoshop" || name == "ICC";
    blocks.push_back({name, block,
                      name == "IPTC" ? Form::kText
                      : bytes        ? Form::kBytes
                                     : Form::kTyped});
  }
  return blocks;
}

std::array<std::pair<const char*, int>, 6> FieldsOf(const JFIFDataObject& jfif) {
  return {{{"Version", jfif.Version},
           {"Units", jfif.units},
           {"Xdensity", jfif.Xdensity},
           {"Ydensity", jfif.Ydensity},
           {"Xthumbnail", jfif.Xthumbnail},
           {"Ythumbnail", jfif.Ythumbnail}}};
}

QJsonValue ToJson(const TagValue& value, bool text) {
  if (const auto* rational = std::get_if<Rational>(&value)) {
    return QJsonArray{rational->numerator, rational->denominator};
  }
  if (const auto* bytes = std::get_if<std::string>(&value)) {
    return text ? QJsonValue(ToQt(PlainText(*bytes)))
                : QJsonValue(QJsonObject{{ToQt("hex"), ToQt(AsHex(*bytes))}});
  }
  const double number = NumberOf(value);
  // The format has no infinity, and nothing that is no number.
  return std::isfinite(number) ? QJsonValue(number) : QJsonValue(ToQt(TextOf(value)));
}

QJsonObject TagToJson(const Listed& block, const TiffDataCoreClass::Entry& entry) {
  QJsonArray values;
  const bool text =
      block.Is == Form::kText || (block.Is == Form::kTyped && entry.Type == kAsciiType);
  for (const TagValue& value : entry.Values) values.append(ToJson(value, text));
  return {{ToQt("tag"), ToQt(entry.Tag)},
          {ToQt("name"), ToQt(block.Data->TagName(entry.Tag))},
          {ToQt("type"), entry.Type},
          {ToQt("values"), values},
          {ToQt("text"), ToQt(block.Data->StringValue(entry.Tag))}};
}

QJsonArray JFIFToJson(const JFIFDataObject& jfif) {
  QJsonArray tags;
  for (const auto& [name, value] : FieldsOf(jfif)) {
    tags.append(QJsonObject{{ToQt("tag"), ToQt(name)},
                            {ToQt("name"), ToQt(name)},
                            {ToQt("type"), static_cast<int>(kLongType)},
                            {ToQt("values"), QJsonArray{value}},
                            {ToQt("text"), ToQt(PaddedNumber(value, 1))}});
  }
  return tags;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + text;
  return joined;
}

QJsonArray XMPToJson(const XMPProperties& properties) {
  QJsonArray tags;
  for (const auto& [name, texts] : properties) {
    QJsonArray values;
    for (const std::string& text : texts) values.append(ToQt(EnsureUTF8(text)));
    tags.append(QJsonObject{{ToQt("tag"), ToQt(name)},
                            {ToQt("name"), ToQt(name)},
                            {ToQt("type"), static_cast<int>(kAsciiType)},
                            {ToQt("values"), values},
                            {ToQt("text"), ToQt(EnsureUTF8(Joined(texts)))}});
  }
  return tags;
}

QJsonObject ToJson(const std::string& file, const ImageMetaData& data) {
  QJsonObject result{{ToQt("file"), ToQt(file)}};
  result.insert(ToQt("error"),
                data.ErrorID < 0 ? QJsonValue() : QJsonValue(ToQt(data.ErrorMessage)));
  const ImageSummaryObject nothing;
  const ImageSummaryObject& summary = data.ImageSummary ? *data.ImageSummary : nothing;
  result.insert(ToQt("summary"), QJsonObject{{ToQt("format"), ToQt(summary.FileFormat)},
                                             {ToQt("width"), static_cast<double>(summary.Width)},
                                             {ToQt("height"), static_cast<double>(summary.Height)},
                                             {ToQt("depth"), summary.Depth},
                                             {ToQt("colorSpace"), ToQt(summary.ColorSpace)},
                                             {ToQt("dpi"), summary.DPI}});
  QJsonObject blocks;
  for (const Listed& block : Blocks(data)) {
    if (block.Data == nullptr) continue;
    QJsonArray tags;
    for (const auto& entry : block.Data->AllData()) tags.append(TagToJson(block, entry));
    blocks.insert(QString::fromLatin1(block.Name.data(), std::ssize(block.Name)), tags);
  }
  if (data.JFIFData) blocks.insert(ToQt("JFIF"), JFIFToJson(*data.JFIFData));
  XMPProperties properties;
  if (!data.XMP.empty() && ReadXMP(data.XMP, properties)) {
    blocks.insert(ToQt("XMP"), XMPToJson(properties));
  }
  result.insert(ToQt("blocks"), blocks);
  return result;
}

/// A file, or the original of a document with what its owner says of it.
void ReadPhoto(const FolderItem& file, ImageMetaData& data) {
  const bool document = file.Directory() && BrivolantDocument::IsDocument(file);
  if (!document || !ReadDocumentMetadata(file, data)) data.ReadFile(file);
}

/// What the window of a file shows.
void Print(const std::string& file) {
  PrintLine(file);
  for (const MetadataSection& section : FileInfo::Read(FolderItem(file))->Sections(false)) {
    if (section.Rows.empty()) continue;
    PrintLine(section.Label);
    for (const MetadataRow& row : section.Rows) {
      PrintLine("  " + row.Label + (row.Label.empty() ? "" : " ") + EnsureUTF8(row.Value));
    }
  }
}

/// "TIFF.013B=Text"; of the comment, which has no tags, "Comment=Text".
std::optional<MetadataChange> ChangeFromText(MetadataChange::Act act, const std::string& text) {
  const bool removes = act == MetadataChange::Act::kRemove;
  const std::size_t equals = removes ? text.size() : text.find('=');
  if (equals == std::string::npos) return {};
  const std::string name = text.substr(0, equals);
  const std::size_t dot = std::min(name.find('.'), name.size());
  const auto block = MetadataBlockNamed(name.substr(0, dot));
  if (!block) return {};
  MetadataChange change{act, *block, name.substr(std::min(dot + 1, name.size()))};
  if (change.Tag.empty() && *block != MetadataBlock::kComment) return {};
  if (!removes) change.Text = text.substr(equals + 1);
  return change;
}

/// Of a file that is there already: it keeps its size and how it is turned.
std::string CopyInto(const FolderItem& file, const FolderItem& from) {
  if (!from.Exists()) return texts::Of(codecTexts::kMissing, from.DisplayName());
  ImageMetaData data;
  data.ReadFile(file);
  MetadataCopy::Facts facts;
  if (data.ImageSummary) {
    facts.Width = static_cast<int>(data.ImageSummary->Width);
    facts.Height = static_cast<int>(data.ImageSummary->Height);
  }
  const double turned =
      data.TIFFData ? NumberOf(data.TIFFData->Lookup("0112", TagValue(1U), 1)) : 1;
  if (turned >= 1 && turned <= 8) facts.Orientation = static_cast<int>(turned);
  facts.SRGB = false;
  const bool document = from.Directory() && BrivolantDocument::IsDocument(from);
  const FolderItem photo = document ? BrivolantDocument::OriginalIn(from) : from;
  const MetadataCopy copy(photo, MetadataCopy::Rule::kAll,
                          document ? PacketIn(from) : std::string());
  if (!copy.Good()) return texts::Of(codecTexts::kUnreadable, from.DisplayName());
  return copy.Into(file, facts);
}

/// "creator=Ada": what stands in several places of a file. Several keywords have commas between.
struct FieldText {
  MetadataField Field;
  std::string Name;
  std::vector<std::string> Texts;
};
std::optional<FieldText> FieldFromText(const std::string& text) {
  const std::size_t equals = text.find('=');
  const auto field = MetadataFieldNamed(text.substr(0, equals));
  if (!field || equals == std::string::npos) return {};
  FieldText result{*field, text.substr(0, equals), {}};
  const std::string value = text.substr(equals + 1);
  if (*field != MetadataField::kKeywords) {
    if (!value.empty()) result.Texts.push_back(value);
    return result;
  }
  for (const std::string_view word : Split(value, ',')) {
    if (!Trim(word).empty()) result.Texts.emplace_back(Trim(word));
  }
  return result;
}

/// Empty, or the sentence why not.
std::string SetFields(const FolderItem& file, const std::vector<FieldText>& fields) {
  ImageMetaData held;
  held.ReadFile(file);
  std::vector<MetadataChange> all;
  for (const FieldText& field : fields) {
    const auto changes = ChangesOf(field.Field, field.Texts, held);
    if (!changes) {
      return WithPlaceholders(MetadataWriter::kNotThis.Text(),
                              {{"<filename>", file.DisplayName()}, {"<tag>", field.Name}});
    }
    all.insert(all.end(), changes->begin(), changes->end());
  }
  return all.empty() ? std::string() : MetadataWriter::Write(file, all);
}

int WriteMetadata(const MetadataOptions& options) {
  std::vector<MetadataChange> changes;
  std::vector<FieldText> fields;
  using Act = MetadataChange::Act;
  for (const auto& [act, texts] :
       {std::pair(Act::kSet, &options.set), std::pair(Act::kAdd, &options.add),
        std::pair(Act::kRemove, &options.remove)}) {
    for (const std::string& text : *texts) {
      if (auto field = act == Act::kSet ? FieldFromText(text) : std::nullopt) {
        fields.push_back(std::move(*field));
        continue;
      }
      auto change = ChangeFromText(act, text);
      if (!change) {
        PrintError(WithPlaceholders(texts::kBadTag.Text(), {{"<text>", text}}));
        return kWrongUse;
      }
      changes.push_back(std::move(*change));
    }
  }
  if (!options.strip.empty() && options.strip != "gps" && options.strip != "all") {
    PrintError(WithPlaceholders(texts::kBadStrip.Text(), {{"<text>", options.strip}}));
    return kWrongUse;
  }
  int code = kDone;
  for (const std::string& input : options.inputs) {
    const FolderItem file(input);
    std::string error;
    (void)Guarded(file, error, [&] {
      if (!options.strip.empty()) {
        error = MetadataWriter::Write(file, options.strip == "all" ? MetadataWriter::Strip::kAll
                                                                   : MetadataWriter::Strip::kPlace);
        // What is kept beside the photo goes along into every copy.
        const bool photo = FolderitemExtensions::NamesPicture(file.Name());
        const std::string beside =
            options.strip == "gps" && photo ? Sidecar::StripPlace(file) : std::string();
        if (error.empty()) error = beside;
        const FolderItem sidecar = Sidecar::Of(file);
        if (options.strip == "all" && error.empty() && sidecar) {
          PrintError(texts::Of(texts::kSidecarStays, sidecar.DisplayName()));
        }
      }
      if (error.empty() && !options.from.empty()) error = CopyInto(file, FolderItem(options.from));
      if (error.empty() && !fields.empty()) error = SetFields(file, fields);
      if (error.empty() && !changes.empty()) error = MetadataWriter::Write(file, changes);
      return true;
    });
    if (error.empty()) continue;
    code = kFileFailed;
    PrintError(error);
  }
  return code;
}

int RunMetadata(const MetadataOptions& options) {
  if (options.Writes()) return WriteMetadata(options);
  int code = kDone;
  QJsonArray all;
  for (const std::string& input : options.inputs) {
    const FolderItem file(input);
    ImageMetaData data;
    std::string error;
    const bool done = Guarded(file, error, [&] {
      ReadPhoto(file, data);
      if (!options.json) Print(input);
      return true;
    });
    if (!done || data.ErrorID >= 0) {
      code = kFileFailed;
      if (error.empty()) error = "\"" + file.DisplayName() + "\": " + data.ErrorMessage;
      PrintError(error);
    }
    if (options.json) all.append(ToJson(input, data));
  }
  if (options.json) PrintJson(all, true);
  return code;
}

}  // namespace

void AddMetadataCommand(CLI::App& program, const Common&, Action& action) {
  CLI::App* command = program.add_subcommand("metadata", texts::kMetadata.Text());
  auto options = std::make_shared<MetadataOptions>();
  command->add_option("FILE", options->inputs, texts::kInput.Text())->required();
  command->add_flag("--json", options->json, texts::kJson.Text());
  const auto list = [&](const char* name, std::vector<std::string>& into,
                        const LocalizedText& text) {
    command->add_option(name, into, text.Text())->expected(1)->take_all();
  };
  list("--set", options->set, texts::kMetadataSet);
  list("--add", options->add, texts::kMetadataAdd);
  list("--remove", options->remove, texts::kMetadataRemove);
  command->add_option("--copy-from", options->from, texts::kMetadataFrom.Text());
  command->add_option("--strip", options->strip, texts::kMetadataStrip.Text());
  command->callback([options, &action] { action = [options] { return RunMetadata(*options); }; });
}

}  // namespace brivolant::cli
