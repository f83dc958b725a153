// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brivolant {

/// Datasets of IPTC-IIM, of all records, in their order. What is written is declared as UTF-8, and
/// texts that are there in another encoding become UTF-8 with it.
class IPTCRecords {
 public:
  IPTCRecords() = default;
  explicit IPTCRecords(std::string_view bytes);

  /// All of the bytes were datasets, and their texts are in an encoding that is known here: nothing
  /// would be lost by writing them anew.
  bool Whole() const { return whole_; }
  struct Dataset {
    int record;
    int number;
    std::string value;
    /// As it stood, with its length in the form that it had; empty for what is new.
    std::string raw;
  };
  const std::vector<Dataset>& Datasets() const { return datasets_; }
  /// Texts of a dataset of the second record; those that were there go, and the new ones stand
  /// where the first of them stood.
  void Set(int dataset, const std::vector<std::string>& texts);
  void Add(int dataset, const std::string& text);
  /// Takes out where the photo was taken.
  void RemovePlace();
  std::string Bytes() const;

 private:
  void Declare();
  void Insert(std::size_t at, int record, int number, std::string value);
  /// Where a dataset of a record belongs: behind those up to its number.
  std::size_t PlaceOf(int record, int number) const;

  std::vector<Dataset> datasets_;
  bool whole_ = true;
};

}  // namespace brivolant
