// SPDX-License-Identifier: MIT
#include "engine/ParameterText.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "platform/values/Text.h"

namespace brivolant {

namespace {

/// One box as JSON: an object of the box's keys.
Dictionary TextBox(const QJsonObject& object) {
  Dictionary box;
  for (auto entry = object.begin(); entry != object.end(); ++entry) {
    const std::string key = entry.key().toStdString();
    const QJsonValue& value = entry.value();
    if (value.isDouble()) {
      box.Value(key, value.toDouble());
    } else {
      box.Value(key, value.toString().toStdString());
    }
  }
  return box;
}

/// A JSON object or an array of them as boxes under their numbers; anything else is one text.
Variant TextBoxes(std::string_view text) {
  const QJsonDocument json =
      QJsonDocument::fromJson(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
  Dictionary boxes;
  if (json.isObject()) {
    boxes.Value(0, TextBox(json.object()));
    return boxes;
  }
  if (!json.isArray()) return text;
  for (const auto& entry : json.array()) boxes.Value(boxes.Count(), TextBox(entry.toObject()));
  return boxes;
}

QJsonObject JsonOf(const Dictionary& box) {
  QJsonObject object;
  for (int i = 0; i < box.Count(); ++i) {
    const QString key = QString::fromStdString(box.Key(i).ToText());
    const Variant& value = box.ValueAt(i);
    if (value.Is<Color>()) {
      object.insert(key, QString::fromStdString(TextFromValue(value)));
    } else if (value.IsNumber()) {
      object.insert(key, LeadingNumber(value.ToText()));
    } else {
      object.insert(key, QString::fromStdString(value.ToText()));
    }
  }
  return object;
}

}  // namespace

std::optional<Variant> ValueFromText(std::string_view text, const std::string& type) {
  // Of a text effect a plain text, or boxes as JSON.
  if (type == "texts") return TextBoxes(text);
  if (type == "string") return Variant(text);
  if (type == "boolean") {
    if (EqualIgnoringCase(text, "true") || text == "1") return Variant(true);
    if (EqualIgnoringCase(text, "false") || text == "0") return Variant(false);
    return std::nullopt;
  }
  if (type == "colour") {
    if (text.size() == 7 && text.front() == '#' &&
        text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos) {
      return Variant(Variant(text).ToColor());
    }
    return std::nullopt;
  }
  const auto number = NumberFromText(text);
  if (!number) return std::nullopt;
  if (type == "integer") {
    constexpr double kMost = 2147483647;
    if (std::trunc(*number) != *number || std::abs(*number) > kMost) return std::nullopt;
    return Variant(static_cast<std::int32_t>(*number));
  }
  return type == "single" ? Variant(static_cast<float>(*number)) : Variant(*number);
}

std::string TextFromValue(const Variant& value) {
  if (const Color* color = value.As<Color>()) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[color->RGB() >> shift & 15];
    return text;
  }
  const auto* boxes = value.As<Dictionary>();
  if (boxes == nullptr) return value.ToText();
  QJsonArray array;
  for (int i = 0; i < boxes->Count(); ++i) {
    if (const auto* box = boxes->ValueAt(i).As<Dictionary>()) array.append(JsonOf(*box));
  }
  return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}

}  // namespace brivolant
