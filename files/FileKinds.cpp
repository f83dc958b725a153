// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QMimeDatabase>
#include <algorithm>
#include <array>
#include <fstream>

#include "files/FolderitemExtensions.h"
#include "platform/codecs/RawExtensions.h"

namespace brivolant::FolderitemExtensions {
namespace {

/// A kind told by the first four bytes, and by what follows after `skip` more.
struct Signature {
  std::string_view first;
  int skip;
  std::string_view then;
  std::string_view kind;
};
constexpr std::array<Signature, 20> kSignatures{{
    {"FFD8FFE0", 0, "", "JPG"},         {"FFD8FFE1", 0, "", "JPG"},
    {"49492A00", 0, "", "TIF"},         {"4D4D002A", 0, "", "TIF"},
    {"3C3F786D", 0, "", "XML"},         {"4D546864", 0, "", "MID"},
    {"47494638", 0, "", "GIF"},         {"25504446", 0, "", "PDF"},
    {"38425053", 0, "", "PSD"},         {"2E524D46", 0, "", "RMF"},
    {"52494646", 4, "41434F4E", "ANI"}, {"52494646", 4, "41564920", "AVI"},
    {"52494646", 4, "524D4944", "RMI"}, {"52494646", 4, "57415645", "WAV"},
    {"D7CDC69A", 0, "", "WMF"},         {"01000000", 0, "", "EMF"},
    {"000001BA", 0, "", "MPG"},         {"89504E47", 0, "0D0A1A0A", "PNG"},
    {"7B5C7274", 0, "6631", "RTF"},     {"3026B275", 0, "8E66CF11A6D900AA0062CE6C", "ASF"},
}};

struct BaseType {
  std::string_view kind;
  std::string_view base;
};
constexpr std::array<BaseType, 18> kBaseTypes{{
    {"JPG", "Image"},
    {"GIF", "Image"},
    {"TIF", "Image"},
    {"BMP", "Image"},
    {"PSD", "Image"},
    {"PCT", "Image"},
    {"WMF", "Image"},
    {"EMF", "Image"},
    {"PNG", "Image"},
    {"RMF", "Movie"},
    {"AVI", "Movie"},
    {"MPG", "Movie"},
    {"MOV", "Movie"},
    {"MP4", "Movie"},
    {"ASF", "Movie"},
    {"WAV", "Sound"},
    {"AMR", "Sound"},
    {"MP3", "Sound"},
}};

/// The beginning of a file and its last 128 bytes.
struct Sample {
  std::string head;
  std::string tail;
  bool opened = false;
};

Sample ReadSample(const brivolant::FolderItem& file) {
  Sample sample;
  std::ifstream stream(file.Path(), std::ios::binary);
  if (!stream || file.Directory()) return sample;
  sample.opened = true;
  constexpr std::size_t kHead = 512;
  constexpr std::size_t kTail = 128;
  sample.head.resize(kHead);
  stream.read(sample.head.data(), kHead);
  sample.head.resize(static_cast<std::size_t>(stream.gcount()));
  stream.clear();
  if (file.Length() >= kTail) {
    stream.seekg(-static_cast<std::streamoff>(kTail), std::ios::end);
    sample.tail.resize(kTail);
    stream.read(sample.tail.data(), kTail);
    sample.tail.resize(static_cast<std::size_t>(stream.gcount()));
  }
  return sample;
}

std::string Hex(std::string_view bytes, std::size_t at, std::size_t count) {
  std::string text;
  if (at >= bytes.size()) return text;
  for (const char c : bytes.substr(at, count)) text += Hexadecimal(static_cast<std::uint8_t>(c), 2);
  return text;
}

std::string_view Part(std::string_view bytes, std::size_t at, std::size_t count) {
  return at < bytes.size() ? bytes.substr(at, count) : std::string_view();
}

std::string_view KindOf(const Sample& sample) {
  const std::string_view head = sample.head;
  const std::string first = Hex(head, 0, 4);
  for (const Signature& known : kSignatures) {
    if (first != known.first) continue;
    const std::size_t at = 4 + static_cast<std::size_t>(known.skip);
    if (Hex(head, at, known.then.size() / 2) == known.then) return known.kind;
  }
  if (Hex(head, 0, 2) == "FFFB" || Hex(head, 417, 2) == "FFFB" || Part(head, 0, 3) == "ID3" ||
      Part(sample.tail, 0, 3) == "TAG") {
    return "MP3";
  }
  if (Hex(head, 0, 2) == "424D") return "BMP";
  const std::string_view atom = Part(head, 4, 4);
  if (atom == "ftyp") {
    const std::string_view brand = Part(head, 8, 3);
    if (EqualIgnoringCase(brand, "mp4") || EqualIgnoringCase(brand, "m4a") ||
        EqualIgnoringCase(brand, "m4v")) {
      return "MP4";
    }
    if (brand == "qt ") return "MOV";
  }
  if (atom == "moov" || atom == "mdat") return "MOV";
  if (Part(head, 2, 3) == "AMR") return "AMR";
  return {};
}

}  // namespace

std::string FileFormat(const brivolant::FolderItem& file) {
  const Sample sample = ReadSample(file);
  if (!sample.opened) return "NILBINARYSTREAM";
  if (const std::string_view kind = KindOf(sample); !kind.empty()) return std::string(kind);
  const std::string name = file.Name();
  const std::size_t dot = name.rfind('.');
  if (dot == std::string::npos) return {};
  return std::string(Split(std::string_view(name).substr(dot + 1), ' ').front());
}

std::string FileBaseType(const brivolant::FolderItem& file) {
  const std::string kind = FileFormat(file);
  for (const BaseType& known : kBaseTypes) {
    if (EqualIgnoringCase(kind, known.kind)) return std::string(known.base);
  }
  return {};
}

std::string FileExtension(const brivolant::FolderItem& file) {
  const std::string name = file.Name();
  const std::size_t dot = name.rfind('.');
  const std::string extension = dot == std::string::npos ? std::string() : name.substr(dot + 1);
  return extension.empty() ? file.MacType() : extension;
}

std::string FileNameWithoutExtension(const brivolant::FolderItem& file) {
  std::string name = file.Name();
  const std::size_t dot = name.rfind('.');
  if (dot == std::string::npos || dot + 1 == name.size()) return name;
  return name.substr(0, dot);
}

bool isFileType(const brivolant::FolderItem& file, const FileType* type) {
  if (file.IsNil() || type == nullptr) return false;
  if (!type->MacType.empty() && file.MacType() == type->MacType &&
      file.MacCreator() == type->MacCreator) {
    return true;
  }
  const std::string extension = FileExtension(file);
  if (extension.empty()) return false;
  const auto fields = Split(type->Extensions, ';');
  return std::any_of(fields.begin(), fields.end(),
                     [&](std::string_view field) { return EqualIgnoringCase(field, extension); });
}

namespace {

/// By name and content. The file is opened by the bytes of its name, which need not be UTF-8.
QMimeType TypeOf(const brivolant::FolderItem& file) {
  const QMimeDatabase database;
  const int descriptor = open(file.Path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  struct stat status {};
  const bool plain = descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  QFile content;
  if (!plain || !content.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
    if (descriptor >= 0) close(descriptor);
    return database.mimeTypeForFile(QFile::decodeName(file.Path().c_str()));
  }
  return database.mimeTypeForFileNameAndData(QString::fromStdString(file.DisplayName()), &content);
}

}  // namespace

std::string Kind(const brivolant::FolderItem& file) {
  return TypeOf(file).comment().toStdString();
}

std::string KindByName(const brivolant::FolderItem& file) {
  const QMimeDatabase database;
  return database
      .mimeTypeForFile(QFile::decodeName(file.Path().c_str()), QMimeDatabase::MatchExtension)
      .comment()
      .toStdString();
}

bool HoldsPicture(const brivolant::FolderItem& file) {
  const QMimeType type = TypeOf(file);
  return type.name().startsWith(QLatin1String("image/")) ||
         type.inherits(QStringLiteral("application/pdf"));
}

bool NamesPicture(std::string_view name) {
  // The desktop's list lacks some cameras.
  const std::string extension = LowerCase(name.substr(std::min(name.rfind('.'), name.size())));
  for (const std::string_view raw : kRawExtensions) {
    if (extension.size() == raw.size() + 1 && extension.ends_with(raw)) return true;
  }
  const QMimeDatabase database;
  return database
      .mimeTypeForFile(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())),
                       QMimeDatabase::MatchExtension)
      .name()
      .startsWith(QLatin1String("image/"));
}

namespace {

std::vector<std::string> NamesOf(const QMimeType& type) {
  return {type.iconName().toStdString(), type.genericIconName().toStdString()};
}

}  // namespace

std::vector<std::string> IconNames(const brivolant::FolderItem& file) {
  if (file.Directory()) return {"folder", "inode-directory"};
  return IconNamesByName(file);
}

std::vector<std::string> IconNamesByName(const brivolant::FolderItem& file) {
  const QMimeDatabase database;
  return NamesOf(database.mimeTypeForFile(QFile::decodeName(file.Path().c_str()),
                                          QMimeDatabase::MatchExtension));
}

std::vector<std::string> IconNamesOfType(const std::string& type) {
  const QMimeDatabase database;
  const QString text = QString::fromStdString(type);
  return NamesOf(type.find('/') != std::string::npos
                     ? database.mimeTypeForName(text)
                     : database.mimeTypeForFile(QStringLiteral("name.") + text,
                                                QMimeDatabase::MatchExtension));
}

}  // namespace brivolant::FolderitemExtensions
