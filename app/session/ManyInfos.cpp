// SPDX-License-Identifier: MIT
#include "app/session/ManyInfos.h"

#include <algorithm>

namespace brivolant {
namespace {

using enum MetadataField;

/// The moment that a draft says, as fields take it.
std::optional<Date> TakenIn(const MetadataDraft& draft) {
  for (const std::string& text : draft.Texts(kTaken)) {
    if (const auto date = DateFromExif(text)) return date;
  }
  return {};
}

/// Null if it was given up: its disk may be away.
std::shared_ptr<FileInfo> ReadApart(const FolderItem& file, const Jobs::Control& control) {
  const auto info = std::make_shared<std::shared_ptr<FileInfo>>();
  const bool done = control.Apart([file, info] { *info = FileInfo::Read(file); });
  return done ? *info : nullptr;
}

/// What a file says in a field, as the sheet shows it.
std::vector<std::string> SaidIn(FileInfo& info, MetadataField field) {
  if (field != kPosition) return info.Draft().Texts(field);
  const auto where = info.Facts().Where;
  return where ? std::vector{TextOf(*where)} : std::vector<std::string>();
}

bool Apply(const ManyInfos::Order& order, MetadataDraft& draft) {
  bool done = true;
  for (const ManyInfos::Field& field : order.Fields) {
    if (draft.Texts(field.Which) != field.Texts) done = draft.Set(field.Which, field.Texts) && done;
  }
  const std::vector<std::string> words = draft.Texts(kKeywords);
  const auto has = [&](const std::string& word) {
    return std::ranges::find(words, word) != words.end();
  };
  for (const std::string& word : order.GoneWords) {
    if (has(word)) done = draft.EditKeyword(word, {}) && done;
  }
  for (const std::string& word : order.NewWords) {
    if (!has(word)) done = draft.EditKeyword({}, word) && done;
  }
  if (order.Shift == 0) return done;
  if (const auto taken = TakenIn(draft)) {
    const Date moved = Date::FromTotalSeconds(taken->TotalSeconds() + order.Shift);
    done = draft.Set(kTaken, {moved.Text()}) && done;
  }
  return done;
}

}  // namespace

const std::vector<MetadataField>& ManyInfos::Offered() {
  static const std::vector<MetadataField> kOffered{
      kTitle, kDescription, kCreator, kCopyright, kRating, kCity, kState, kCountry, kPosition};
  return kOffered;
}

std::optional<ManyInfos::Common> ManyInfos::Read(const std::vector<FolderItem>& files,
                                                 Jobs::Control& control) {
  Common common;
  bool first = true;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (!control.Progress(static_cast<double>(i) / static_cast<double>(files.size()))) return {};
    const auto info = ReadApart(files[i], control);
    if (!info) return {};
    if (info->KeptIn() == FileInfo::Keeps::kNowhere) continue;
    common.Photos.push_back(files[i]);
    if (info->KeptIn() == FileInfo::Keeps::kBeside) ++common.Beside;
    std::vector<std::string> words = info->Draft().Texts(kKeywords);
    if (first) {
      common.Words = std::move(words);
      for (const MetadataField field : Offered()) {
        common.Said.emplace_back(field, SaidIn(*info, field));
      }
      common.FirstTaken = info->Facts().Taken;
      first = false;
      continue;
    }
    std::erase_if(common.Words, [&](const std::string& word) {
      return std::ranges::find(words, word) == words.end();
    });
    for (auto& [field, texts] : common.Said) {
      if (SaidIn(*info, field) == texts) continue;
      texts.clear();
      if (std::ranges::find(common.Differing, field) == common.Differing.end()) {
        common.Differing.push_back(field);
      }
    }
  }
  return common;
}

void ManyInfos::Give(const std::vector<FolderItem>& files, const Order& order, Result& result,
                     Jobs::Control& control) {
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (!control.Progress(static_cast<double>(i) / static_cast<double>(files.size()))) return;
    const auto info = ReadApart(files[i], control);
    if (!info) return;
    const auto refuse = [&](const LocalizedText& text) {
      result.Failed.push_back(
          WithPlaceholders(text.Text(), {{"<filename>", files[i].DisplayName()}}));
    };
    if (info->KeptIn() == FileInfo::Keeps::kNowhere) {
      refuse(kNothingKept);
      continue;
    }
    MetadataDraft& draft = info->Draft();
    if (!Apply(order, draft)) {
      refuse(kNotFit);
      continue;
    }
    const std::vector<MetadataChange> changes = draft.Pending();
    if (changes.empty()) continue;
    FileInfo::Said after;
    if (std::string why = FileInfo::Write(info->Keeping(), changes, draft.Before(changes), after);
        !why.empty()) {
      result.Failed.push_back(std::move(why));
      continue;
    }
    draft.Saved(changes, after);
    while (draft.CanUndo()) draft.Undo();
    const std::vector<MetadataChange> back = draft.Pending();
    result.Given.push_back({info->Keeping(), back, draft.Before(back)});
  }
}

std::vector<std::string> ManyInfos::TakeBack(std::vector<Done>& given, Jobs::Control& control) {
  std::vector<std::string> failed;
  std::vector<Done> left;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const Done& done = given[i];
    const bool goOn = control.Progress(static_cast<double>(i) / static_cast<double>(given.size()));
    FileInfo::Said after;
    std::string why =
        goOn ? FileInfo::Write(done.Keeper, done.Back, done.Given, after) : std::string();
    if (goOn && why.empty()) continue;
    if (!why.empty()) failed.push_back(std::move(why));
    left.push_back(done);
  }
  given = std::move(left);
  return failed;
}

}  // namespace brivolant
