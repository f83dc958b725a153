// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FolderItem.h"

namespace brivolant::SearchIndex {

/// Files that the desktop's index of files (LocalSearch, once called Tracker) knows under a name
/// with that text in it: images and folders. Nothing if no such index runs, if it fails, or if
/// `ended` was set. May be called on any thread; waits for the answer.
std::optional<std::vector<FolderItem>> AskLocalSearch(const std::string& text,
                                                      const std::atomic<bool>& ended);
/// The same of Baloo. It answers with the best of what it finds by the beginnings of words, so it
/// cannot stand for a search of its own.
std::vector<FolderItem> AskBaloo(const std::string& text);

/// The first column of rows as the index writes them: for each row a count of columns, their types,
/// the place of each value's end, then the values, each ended by a zero byte. 32-bit integers of
/// this machine's byte order. Ends at the first row that is not whole.
std::vector<std::string> FirstColumn(std::string_view rows);

}  // namespace brivolant::SearchIndex
