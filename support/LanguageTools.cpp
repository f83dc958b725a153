// SPDX-License-Identifier: MIT
#include "support/LanguageTools.h"

#include <array>

#include "platform/values/Variant.h"

namespace brivolant::LanguageTools {
namespace {

/// In the order of their numbers, which files hold.
constexpr std::array<LocalizedText, kLanguageCount> kNames{{
    {"LanguageTools.kLanguageEnglish", "English"},
    {"LanguageTools.kLanguageEnglishUK", "English (UK)"},
    {"LanguageTools.kLanguageFrench", "French"},
    {"LanguageTools.kLanguageGerman", "German"},
    {"LanguageTools.kLanguageItalian", "Italian"},
    {"LanguageTools.kLanguageDutch", "Dutch"},
    {"LanguageTools.kLanguageSwedish", "Swedish"},
    {"LanguageTools.kLanguageSpanish", "Spanish"},
    {"LanguageTools.kLanguageDanish", "Danish"},
    {"LanguageTools.kLanguagePortuguese", "Portuguese"},
    {"LanguageTools.kLanguageNorwegian", "Norwegian"},
    {"LanguageTools.kLanguageHebrew", "Hebrew"},
    {"LanguageTools.kLanguageJapanese", "Japanese"},
    {"LanguageTools.kLanguageArabic", "Arabic"},
    {"LanguageTools.kLanguageFinnish", "Finnish"},
    {"LanguageTools.kLanguageGreek", "Greek"},
    {"LanguageTools.kLanguageIcelandic", "Icelandic"},
    {"LanguageTools.kLanguageMaltese", "Maltese"},
    {"LanguageTools.kLanguageTurkish", "Turkish"},
    {"LanguageTools.kLanguageCroation", "Croation"},
    {"LanguageTools.kLanguageTradChinese", "Traditional Chinese"},
    {"LanguageTools.kLanguageUrdu", "Urdu"},
    {"LanguageTools.kLanguageHindi", "Hindi"},
    {"LanguageTools.kLanguageThai", "Thai"},
    {"LanguageTools.kLanguageKorean", "Korean"},
    {"LanguageTools.kLanguageLithuanian", "Lithuanian"},
    {"LanguageTools.kLanguagePolish", "Polish"},
    {"LanguageTools.kLanguageHungarian", "Hungarian"},
    {"LanguageTools.kLanguageEstonian", "Estonian"},
    {"LanguageTools.kLanguageLatvian", "Latvian"},
    {"LanguageTools.kLanguageLapponian", "Lapponian"},
    {"LanguageTools.kLanguageFaroese", "Faroese"},
    {"LanguageTools.kLanguagePersian", "Persian"},
    {"LanguageTools.kLanguageRussian", "Russian"},
    {"LanguageTools.kLanguageSimpChinese", "Simplified Chinese"},
    {"LanguageTools.kLanguageFlemish", "Flemish"},
    {"LanguageTools.kLanguageIrish", "Irish Gaelic"},
    {"LanguageTools.kLanguageAlbanian", "Albanian"},
    {"LanguageTools.kLanguageRomanian", "Romanian"},
    {"LanguageTools.kLanguageCzech", "Czech"},
    {"LanguageTools.kLanguageSlovak", "Slovak"},
    {"LanguageTools.kLanguageSlovenian", "Slovenian"},
    {"LanguageTools.kLanguageYiddish", "Yiddish"},
    {"LanguageTools.kLanguageSerbian", "Serbian"},
    {"LanguageTools.kLanguageMacedonian", "Macedonian"},
    {"LanguageTools.kLanguageBulgarian", "Bulgarian"},
    {"LanguageTools.kLanguageUkrainian", "Ukrainian"},
    {"LanguageTools.kLanguageBelarusian", "Belarusian"},
    {"LanguageTools.kLanguageUzbek", "Uzbek"},
    {"LanguageTools.kLanguageKazakh", "Kazakh"},
    {"LanguageTools.kLanguageAzerbaijan", "Azerbaijan (Cyrillic)"},
    {"LanguageTools.kLanguageAzerbaijanArabic", "Azerbaijan (Arabic)"},
    {"LanguageTools.kLanguageArmenian", "Armenian"},
    {"LanguageTools.kLanguageGeorgian", "Georgian"},
    {"LanguageTools.kLanguageMoldavian", "Moldavian"},
    {"LanguageTools.kLanguageKirghiz", "Kirghiz"},
    {"LanguageTools.kLanguageTajik", "Tajik"},
    {"LanguageTools.kLanguageTurkmen", "Turkmen"},
    {"LanguageTools.kLanguageMongolian", "Mongolian"},
    {"LanguageTools.kLanguageMongolianCyrillic", "Mongolian (Cyrillic)"},
    {"LanguageTools.kLanguagePashto", "Pashto"},
    {"LanguageTools.kLanguageKurdish", "Kurdish"},
    {"LanguageTools.kLanguageKashmiri", "Kashmiri"},
    {"LanguageTools.kLanguageSindhi", "Sindhi"},
    {"LanguageTools.kLanguageTibetan", "Tibetan"},
    {"LanguageTools.kLanguageNepali", "Nepali"},
    {"LanguageTools.kLanguageSanskrit", "Sanskrit"},
    {"LanguageTools.kLanguageMarathi", "Marathi"},
    {"LanguageTools.kLanguageBengali", "Bengali"},
    {"LanguageTools.kLanguageAssamese", "Assamese"},
    {"LanguageTools.kLanguageGujarati", "Gujarati"},
    {"LanguageTools.kLanguagePunjabi", "Punjabi"},
    {"LanguageTools.kLanguageOriya", "Oriya"},
    {"LanguageTools.kLanguageMalayalam", "Malayalam"},
    {"LanguageTools.kLanguageKannada", "Kannada"},
    {"LanguageTools.kLanguageTamil", "Tamil"},
    {"LanguageTools.kLanguageTelugu", "Telugu"},
    {"LanguageTools.kLanguageSinhalse", "Sinhalse"},
    {"LanguageTools.kLanguageBurmese", "Burmese"},
    {"LanguageTools.kLanguageKhmer", "Khmer"},
    {"LanguageTools.kLanguageLao", "Lao"},
    {"LanguageTools.kLanguageVietnamese", "Vietnamese"},
    {"LanguageTools.kLanguageIndonesian", "Indonesian"},
    {"LanguageTools.kLanguageTagalog", "Tagalog"},
    {"LanguageTools.kLanguageMalayRoman", "Malayalan (Roman)"},
    {"LanguageTools.kLanguageMalayArabic", "Malayalan (Arabic)"},
    {"LanguageTools.kLanguageAmharic", "Amharic"},
    {"LanguageTools.kLanguageTigrinya", "Tigrinya"},
    {"LanguageTools.kLanguageOromo", "Oromo"},
    {"LanguageTools.kLanguageSomali", "Somali"},
    {"LanguageTools.kLanguageSwahili", "Swahili"},
    {"LanguageTools.kLanguageKinyarwanda", "Kinyarwanda"},
    {"LanguageTools.kLanguageRundi", "Rundi"},
    {"LanguageTools.kLanguageChewa", "Chewa"},
    {"LanguageTools.kLanguageMalagasy", "Malagasy"},
    {"LanguageTools.kLanguageEsperanto", "Esperanto"},
    {"LanguageTools.kLanguageWelsh", "Welsh"},
    {"LanguageTools.kLanguageBasque", "Basque"},
    {"LanguageTools.kLanguageCatalan", "Catalan"},
    {"LanguageTools.kLanguageLatin", "Latin"},
    {"LanguageTools.kLanguageQuechua", "Quechua"},
    {"LanguageTools.kLanguageGuarani", "Guarani"},
    {"LanguageTools.kLanguageAymara", "Aymara"},
    {"LanguageTools.kLanguageTatar", "Tatar"},
    {"LanguageTools.kLanguageUighur", "Uighur"},
    {"LanguageTools.kLanguageDzongka", "Dzongka"},
    {"LanguageTools.kLanguageJavaneseRoman", "Javanese"},
    {"LanguageTools.kLanguageSudaneseRoman", "Sudanese"},
}};

}  // namespace

std::string Name(int id) {
  const bool known = id >= 0 && id < kLanguageCount;
  return known ? kNames.at(static_cast<std::size_t>(id)).Text() : std::string();
}

std::string UserLanguageID() {
  return kUserLanguageID.Text();
}

int UsersLangeuageID() {
  return Variant(UserLanguageID()).ToInt();
}

std::string UsersLanguageName() {
  return Name(UsersLangeuageID());
}

}  // namespace brivolant::LanguageTools
