// SPDX-License-Identifier: MIT
// What is shown of a file, what its owner changes of it, and where that is kept.
#include <algorithm>

#include "MetadataWriting.h"
#include "app/core/Jobs.h"
#include "app/session/FileInfo.h"
#include "app/session/ManyInfos.h"
#include "formats/BrivolantDocument.h"
#include "metadata/MetadataCopy.h"
#include "metadata/MetadataDraft.h"
#include "metadata/PhotoFacts.h"
#include "metadata/Sidecar.h"

namespace brivolant::test {
namespace {

using enum MetadataField;
using testing::IsEmpty;
using testing::Pair;

std::vector<std::pair<std::string, std::string>> Lines(const std::vector<MetadataSection>& sections,
                                                       int number) {
  std::vector<std::pair<std::string, std::string>> lines;
  for (const MetadataSection& section : sections) {
    if (section.Is != number) continue;
    for (const MetadataRow& row : section.Rows) lines.emplace_back(row.Label, row.Value);
  }
  return lines;
}

std::vector<int> Numbers(const std::vector<MetadataSection>& sections) {
  std::vector<int> numbers;
  for (const MetadataSection& section : sections) numbers.push_back(section.Is);
  return numbers;
}

/// A packet that says these properties under prefixes of its own.
std::string PacketOf(const std::string& properties) {
  return "<x:xmpmeta xmlns:x='adobe:ns:meta/'><r:RDF "
         "xmlns:r='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><r:Description r:about='' "
         "xmlns:d='http://purl.org/dc/elements/1.1/' "
         "xmlns:p='http://ns.adobe.com/photoshop/1.0/' "
         "xmlns:old='http://ns.adobe.com/xap/1.0/' "
         "xmlns:e='http://ns.adobe.com/exif/1.0/'>" +
         properties + "</r:Description></r:RDF></x:xmpmeta>";
}
const std::string kLanguages =
    "<d:title><r:Alt><r:li xml:lang='de'>Ein Titel</r:li>"
    "<r:li xml:lang='x-default'>A title</r:li></r:Alt></d:title>";
const std::string kWords = "<d:subject><r:Bag><r:li>sea</r:li><r:li>sky</r:li></r:Bag></d:subject>";

struct Drafts : Writing {
  /// With one text in every place that fields have.
  FolderItem Told() {
    const FolderItem file = Jpeg(Jfif());
    Change(file, {kArtist,
                  {Act::kSet, kTiff, "9C9E", "sea;sky"},
                  {Act::kSet, kIptc, "80", "Anna Beispiel"},
                  {Act::kAdd, kIptc, "25", "sea"},
                  {Act::kAdd, kIptc, "25", "sky"},
                  {Act::kAdd, kIptc, "25", "only here"},
                  {Act::kSet, kXmp, "dc:creator", "Anna Beispiel"},
                  {Act::kAdd, kXmp, "dc:subject", "sea"},
                  {Act::kAdd, kXmp, "dc:subject", "sky"}});
    return file;
  }
  std::vector<std::string> Words(const FolderItem& file) {
    std::vector<std::string> words;
    const auto data = Read(file);
    for (int i = 1; i <= data->IPTCData->ValueCount("25"); ++i) {
      words.push_back(TextOf(data->IPTCData->Value("25", i)));
    }
    return words;
  }
  static void Save(FileInfo& info) {
    MetadataDraft& draft = info.Draft();
    const auto changes = draft.Pending();
    FileInfo::Said after;
    ASSERT_EQ(FileInfo::Write(info.Keeping(), changes, draft.Before(changes), after), "");
    draft.Saved(changes, after);
  }
  std::shared_ptr<FileInfo> Info(const FolderItem& file) { return FileInfo::Read(file); }
};

TEST_F(Drafts, SectionsShowWhatAFileTells) {
  const EnglishNumbers english;
  const FolderItem file =
      Jpeg(Jfif() + Files::Segment(0xE1, std::string(kExifMark) + Files{true}.Tiff()) +
           Files::Segment(0xEE, std::string("Adobe\0\x64\0\2\0\3\1", 12)) +
           Files::Segment(0xFE, "said"));
  Change(file, {{Act::kAdd, kIptc, "25", "one"},
                {Act::kAdd, kIptc, "25", "two"},
                {Act::kAdd, kIptc, "25", "three"},
                {Act::kAdd, kIptc, "219", "nobody's"}});
  auto data = Read(file);
  const auto sections = SectionsOf(*data, false);
  using S = MetadataSection;
  EXPECT_THAT(Numbers(sections), ElementsAre(S::kSummary, S::kJfif, S::kTiff, S::kExif, S::kIptc,
                                             S::kGps, S::kDct, S::kComment));
  EXPECT_THAT(Lines(sections, S::kSummary),
              ElementsAre(Pair("Format:", "JPEG"), Pair("Dimensions:", "40 x 30 at 72 DPI"),
                          Pair("", "0 Megapixels"), Pair("Aspect Ratio:", "4:3"),
                          Pair("Colors:", "8-Bit RGB")));
  EXPECT_THAT(Lines(sections, S::kDct),
              ElementsAre(Pair("Kind:", "Adobe"), Pair("Version:", "100"), Pair("Encoder:", "2"),
                          Pair("Flags:", "3"), Pair("ColorTransformationCode:", "1")));
  EXPECT_THAT(Lines(sections, S::kIptc),
              testing::IsSupersetOf({Pair("Keywords:", "one"), Pair("Keywords:", "two"),
                                     Pair("Keywords:", "three")}));
  EXPECT_THAT(Lines(sections, S::kComment), ElementsAre(Pair("Comment:", "said")));
  const auto named = Lines(SectionsOf(*data, true), S::kIptc);
  EXPECT_EQ(named.size() + 1, Lines(sections, S::kIptc).size()) << "a tag without a name";
  EXPECT_THAT(SectionsOf(*Read(folder.Write("none.txt", "text")), false).size(), 1U);
}

TEST_F(Drafts, WhatAPacketSaysIsShownWhereItsBlocksSayNothing) {
  const FolderItem file = Jpeg(Files::Segment(
      0xE1, std::string("http://ns.adobe.com/xap/1.0/\0", 29) +
                PacketOf("<d:title><r:Alt><r:li>A title</r:li></r:Alt></d:title>" + kWords +
                         "<p:City>Gotham</p:City><old:CreatorTool>A tool</old:CreatorTool>"
                         "<d:description><r:Alt/></d:description>")));
  auto data = Read(file);
  EXPECT_EQ(data->IPTCData, nullptr) << "blocks hold what the file holds";
  const auto sections = SectionsOf(*data, false);
  EXPECT_THAT(Lines(sections, MetadataSection::kIptc),
              ElementsAre(Pair("Object Name:", "A title"), Pair("Keywords:", "sea"),
                          Pair("Keywords:", "sky"), Pair("City:", "Gotham")));
  EXPECT_THAT(Lines(sections, MetadataSection::kTiff),
              testing::Contains(Pair("Software:", "A tool")));
  Change(file, {{Act::kSet, kIptc, "90", "Metropolis"}});
  data = Read(file);
  for (const MetadataSection& section : SectionsOf(*data, false)) {
    if (section.Is != MetadataSection::kIptc) continue;
    const auto city = std::ranges::find(section.Rows, "90", &MetadataRow::Tag);
    EXPECT_EQ(city->Value, "Metropolis");
    EXPECT_EQ(city->Differs, "Gotham");
    EXPECT_FALSE(city->Mapped);
  }
  const PhotoFacts facts = PhotoFacts::Of(*data);
  EXPECT_EQ(facts.Title, "A title") << "under a prefix of its own";
  EXPECT_THAT(facts.Keywords, ElementsAre("sea", "sky"));
}

TEST_F(Drafts, AnEditChangesAllPlacesOfAFieldAndNoOther) {
  const FolderItem file = Told();
  const auto info = Info(file);
  MetadataDraft& draft = info->Draft();
  EXPECT_EQ(info->KeptIn(), FileInfo::Keeps::kInFile);
  EXPECT_FALSE(draft.Dirty());
  ASSERT_TRUE(draft.Edit(kIptc, "80", 1, "Ben Muster"));
  EXPECT_THAT(draft.Texts(kTiff, "013B"), ElementsAre("Ben Muster"));
  EXPECT_THAT(draft.Texts(kXmp, "dc:creator"), ElementsAre("Ben Muster"));
  EXPECT_THAT(draft.Texts(kTiff, "9C9D"), IsEmpty()) << "where nothing was said";
  // The second of three words, wherever it stands; words of one place alone stay there.
  ASSERT_TRUE(draft.Edit(kIptc, "25", 2, "heaven"));
  EXPECT_THAT(draft.Texts(kIptc, "25"), ElementsAre("sea", "heaven", "only here"));
  EXPECT_THAT(draft.Texts(kXmp, "dc:subject"), ElementsAre("sea", "heaven"));
  EXPECT_THAT(draft.Texts(kTiff, "9C9E"), ElementsAre("sea;heaven"));
  ASSERT_TRUE(draft.Edit(kXmp, "dc:subject", 1, ""));
  EXPECT_THAT(draft.Texts(kIptc, "25"), ElementsAre("heaven", "only here"));
  EXPECT_TRUE(draft.Dirty());
  EXPECT_EQ(Words(file), std::vector<std::string>({"sea", "sky", "only here"}))
      << "nothing is written unasked";
  Save(*info);
  EXPECT_FALSE(draft.Dirty());
  EXPECT_EQ(Words(file), std::vector<std::string>({"heaven", "only here"}));
  EXPECT_EQ(Read(file)->TIFFData->StringValue("013B"), "Ben Muster");
  // Undo goes back behind what was written.
  while (draft.CanUndo()) draft.Undo();
  EXPECT_TRUE(draft.Dirty());
  Save(*info);
  EXPECT_EQ(Words(file), std::vector<std::string>({"sea", "sky", "only here"}));
  EXPECT_EQ(Read(file)->TIFFData->StringValue("013B"), "Anna Beispiel");
  draft.Redo();
  EXPECT_THAT(draft.Texts(kTiff, "013B"), ElementsAre("Ben Muster"));
}

TEST_F(Drafts, WhatCannotStandInATagChangesNothing) {
  const FolderItem file = Told();
  const auto info = Info(file);
  MetadataDraft& draft = info->Draft();
  EXPECT_FALSE(draft.Edit(kExif, "9003", 1, "yesterday"));
  EXPECT_FALSE(draft.Set(kRating, {"6"}));
  EXPECT_FALSE(draft.Set(kPosition, {"91, 0"}));
  EXPECT_FALSE(draft.Dirty());
  EXPECT_FALSE(draft.CanUndo());
  ASSERT_TRUE(draft.Edit(kExif, "9003", 1, "2009-03-04 14:05:06"));
  EXPECT_THAT(draft.Texts(kExif, "9003"), ElementsAre("2009:03:04 14:05:06"));
  EXPECT_THAT(draft.Texts(kXmp, "photoshop:DateCreated"), ElementsAre("2009-03-04T14:05:06"));
  const auto sections = draft.Sections(false);
  EXPECT_THAT(Lines(sections, MetadataSection::kExif),
              testing::Contains(Pair("Original Date:", "2009:03:04 14:05:06")));
}

TEST(Positions, AreReadInManyForms) {
  for (const char* text : {"52.5163, 13.3777", "52,5163 13,3777", "52,5163; 13,3777",
                           "52.5163N 13.3777E", "52.5163,13.3777", " 52.5163 , 13.3777 "}) {
    const auto position = PositionFromText(text);
    ASSERT_TRUE(position) << text;
    EXPECT_NEAR(position->Latitude, 52.5163, 1e-9) << text;
    EXPECT_NEAR(position->Longitude, 13.3777, 1e-9) << text;
  }
  EXPECT_NEAR(PositionFromText("33.9 S, 18.4 W")->Latitude, -33.9, 1e-9);
  for (const char* text :
       {"", "52.5", "91, 0", "0, 181", "a, b", "1, 2, 3", "13E, 52N", "nan, 1"}) {
    EXPECT_FALSE(PositionFromText(text)) << text;
  }
}

TEST_F(Drafts, APositionIsWrittenWithItsLettersAndReadAgain) {
  const FolderItem file = Jpeg(Jfif());
  const auto info = Info(file);
  for (const auto& [text, north, east] : {std::tuple("-33.856784, 151.215297", "S", "E"),
                                          std::tuple("59.999999999, -0.5", "N", "W")}) {
    ASSERT_TRUE(info->Draft().Set(kPosition, {text}));
    Save(*info);
    const auto data = Read(file);
    EXPECT_EQ(TextOf(data->GPSData->Value("0001", 1)), north);
    EXPECT_EQ(TextOf(data->GPSData->Value("0003", 1)), east);
    const auto where = PhotoFacts::Of(*data).Where;
    ASSERT_TRUE(where);
    EXPECT_NEAR(where->Latitude, PositionFromText(text)->Latitude, 1e-6);
    EXPECT_NEAR(where->Longitude, PositionFromText(text)->Longitude, 1e-6);
    EXPECT_LT(NumberOf(data->GPSData->Value("0002", 3)), 60) << "no sixty seconds";
  }
}

TEST_F(Drafts, FilesThatAreNeverWrittenGetAPacketBesideThem) {
  const std::string bytes = Files{true}.Tiff();
  const FolderItem raw = folder.Write("a.nef", bytes);
  const auto info = Info(raw);
  EXPECT_EQ(info->KeptIn(), FileInfo::Keeps::kBeside);
  EXPECT_EQ(info->Target().Name(), "a.nef.xmp");
  for (const MetadataSection& section : info->Sections(false)) {
    for (const MetadataRow& row : section.Rows) {
      EXPECT_FALSE(row.Text) << row.Label << " looks editable and is not kept";
    }
  }
  ASSERT_TRUE(info->Draft().Set(kTitle, {"A title"}));
  ASSERT_TRUE(info->Draft().Set(kCreator, {"Ben"}));
  ASSERT_TRUE(info->Draft().Set(kPosition, {"10, 20"}));
  Save(*info);
  EXPECT_EQ(Content(raw), bytes);
  const PhotoFacts facts = PhotoFacts::Of(raw);
  EXPECT_EQ(facts.Title, "A title");
  EXPECT_EQ(facts.Creator, "Ben") << "newer than what the file says";
  EXPECT_NEAR(facts.Where->Latitude, 10, 1e-6);
  EXPECT_EQ(facts.Camera, "Maker");
  // It goes along with copies, in their own blocks.
  const FolderItem copy = Jpeg(Jfif());
  ASSERT_EQ(MetadataCopy(raw, MetadataCopy::Rule::kWithoutPlace).Into(copy, {40, 30}), "");
  EXPECT_EQ(Read(copy)->TIFFData->StringValue("013B"), "Ben");
  EXPECT_EQ(Read(copy)->GPSData, nullptr);
  EXPECT_EQ(PhotoFacts::Of(copy).Title, "A title");
  EXPECT_FALSE(PhotoFacts::Of(copy).Where);
}

TEST_F(Drafts, UndoBringsBackExactlyWhatWasThere) {
  const FolderItem file =
      Jpeg(Files::Segment(0xE1, std::string(kExifMark) + Files{true}.Tiff()) +
           Files::Segment(
               0xE1, std::string("http://ns.adobe.com/xap/1.0/\0", 29) + PacketOf(kLanguages)));
  Change(file, {{Act::kSet, kGps, "0003", "W"},
                {Act::kSet, kGps, "0004", "0 7 39.99"},
                {Act::kSet, kGps, "0006", "35/2"}});
  const std::string place = Read(file)->GPSData->StringValue("0004");
  const auto info = Info(file);
  MetadataDraft& draft = info->Draft();
  ASSERT_TRUE(draft.Set(kPosition, {"10, 20"}));
  EXPECT_THAT(draft.Texts(kGps, "0006"), IsEmpty()) << "the height of another place";
  ASSERT_TRUE(draft.Set(kTitle, {"Another"}));
  const auto changes = draft.Pending();
  FileInfo::Said after;
  ASSERT_EQ(FileInfo::Write(info->Keeping(), changes, draft.Before(changes), after), "");
  // What is edited while it is written is not written.
  ASSERT_TRUE(draft.Set(kTitle, {"A third"}));
  draft.Saved(changes, after);
  EXPECT_TRUE(draft.Dirty());
  while (draft.CanUndo()) draft.Undo();
  Save(*info);
  const auto data = Read(file);
  EXPECT_EQ(data->GPSData->StringValue("0004"), place);
  EXPECT_EQ(NumberOf(data->GPSData->Value("0006", 1)), 17.5);
  EXPECT_THAT(data->XMP, HasSubstr("de\">Ein Titel"));
  EXPECT_THAT(data->XMP, HasSubstr("A title"));
  EXPECT_EQ(PhotoFacts::Of(*data).Title, "A title") << "the one for everybody";
  // Somebody else writes a place that is to change.
  ASSERT_TRUE(draft.Set(kTitle, {"Mine"}));
  Change(file, {{Act::kSet, kXmp, "dc:title", "Theirs"}});
  const auto mine = draft.Pending();
  EXPECT_THAT(FileInfo::Write(info->Keeping(), mine, draft.Before(mine), after),
              HasSubstr("a.jpg"));
  EXPECT_EQ(PhotoFacts::Of(file).Title, "Theirs");
}

TEST_F(Drafts, WhatIsTakenOutBesideAPhotoStaysOutOfItsCopies) {
  const FolderItem raw = folder.Write("a.nef", Files{true}.Tiff());
  const auto info = Info(raw);
  EXPECT_EQ(info->Facts().Creator, "J\xC3\xBCrgen");
  ASSERT_TRUE(info->Draft().Set(kCreator, {}));
  ASSERT_TRUE(info->Draft().Set(kPosition, {}));
  Save(*info);
  EXPECT_EQ(PhotoFacts::Of(raw).Creator, "");
  EXPECT_FALSE(PhotoFacts::Of(raw).Where);
  EXPECT_THAT(Info(raw)->Draft().Texts(kCreator), IsEmpty());
  const FolderItem copy = Jpeg(Jfif());
  ASSERT_EQ(MetadataCopy(raw, MetadataCopy::Rule::kAll).Into(copy, {40, 30}), "");
  EXPECT_EQ(PhotoFacts::Of(copy).Creator, "");
  EXPECT_FALSE(PhotoFacts::Of(copy).Where);
  EXPECT_EQ(PhotoFacts::Of(copy).Camera, "Maker") << "what nobody spoke of";
}

TEST_F(Drafts, ASidecarGoesAlongIntoADocument) {
  TestServices services;
  const FolderItem photo = folder.Write("photo.png", "");
  const std::array<EncodeImage, 1> images{{{TestPicture(64, 48), 1.0}}};
  ASSERT_EQ(EncodeImageFile(photo, "public.png", images), "");
  const auto info = Info(photo);
  EXPECT_EQ(info->KeptIn(), FileInfo::Keeps::kBeside);
  ASSERT_TRUE(info->Draft().Set(kTitle, {"A title"}));
  Save(*info);
  BrivolantDocument document(services.services);
  ASSERT_TRUE(document.CreateFromFile(photo));
  ASSERT_TRUE(document.Save(folder.Child("photo.brvPhoto")));
  EXPECT_EQ(Info(folder.Child("photo.brvPhoto"))->Facts().Title, "A title");
}

TEST_F(Drafts, SidecarsOfBothNamesAreRead) {
  const std::string packet = PacketOf(kWords);
  const FolderItem raw = folder.Write("a.nef", Files{true}.Tiff());
  const FolderItem photo = folder.Write("a.jpg", "\xFF\xD8" + Rest());
  folder.Write("a.xmp", packet);
  EXPECT_THAT(PhotoFacts::Of(raw).Keywords, ElementsAre("sea", "sky"));
  EXPECT_THAT(PhotoFacts::Of(photo).Keywords, IsEmpty()) << "it is the raw file's";
  EXPECT_EQ(Sidecar::For(raw).Name(), "a.xmp");
  folder.Write("a.jpg.xmp", packet);
  EXPECT_THAT(PhotoFacts::Of(photo).Keywords, ElementsAre("sea", "sky"));
  // What is no packet is somebody else's.
  const FolderItem other = folder.Write("b.nef.xmp", "a letter");
  EXPECT_THAT(
      Sidecar::Write(other, std::vector<MetadataChange>{{Act::kSet, kXmp, "dc:title", "T"}}, {}),
      HasSubstr("b.nef.xmp"));
  EXPECT_EQ(Content(other), "a letter");
  EXPECT_EQ(Sidecar::Write(folder.Child("a.xmp"),
                           std::vector<MetadataChange>{{Act::kSet, kXmp, "dc:title", "T"},
                                                       {Act::kAdd, kXmp, "dc:subject", "sun"}},
                           {}),
            "");
  EXPECT_THAT(PhotoFacts::Of(raw).Keywords, ElementsAre("sea", "sky", "sun"));
  EXPECT_EQ(PhotoFacts::Of(raw).Title, "T");
}

TEST_F(Drafts, ADocumentKeepsWhatIsSaidOfItsPhoto) {
  TestServices services;
  const FolderItem photo = folder.Write("photo.jpg", EncodeJpegBytes({TestPicture(64, 48), 0.9}));
  Change(photo, {kArtist});
  BrivolantDocument document(services.services);
  ASSERT_TRUE(document.CreateFromFile(photo));
  const FolderItem package = folder.Child("photo.brvPhoto");
  ASSERT_TRUE(document.SaveAs(package));
  const std::string original = Content(document.OriginalSource());
  const auto info = Info(package);
  EXPECT_EQ(info->KeptIn(), FileInfo::Keeps::kInDocument);
  EXPECT_THAT(Lines(info->Sections(false), MetadataSection::kTiff),
              testing::Contains(Pair("Artist:", "Anna Beispiel")));
  EXPECT_EQ(info->Sections(false).front().Is, MetadataSection::kProgram);
  ASSERT_TRUE(info->Draft().Set(kTitle, {"A title"}));
  Save(*info);
  EXPECT_EQ(Content(document.OriginalSource()), original);
  // It was open meanwhile, and is saved again, and elsewhere.
  ASSERT_TRUE(document.Save(FolderItem()));
  const FolderItem other = folder.Child("other.brvPhoto");
  ASSERT_TRUE(document.SaveAs(other));
  for (const FolderItem& saved : {package, other}) {
    EXPECT_EQ(Info(saved)->Facts().Title, "A title");
    EXPECT_EQ(Info(saved)->Facts().Creator, "Anna Beispiel");
  }
  BrivolantDocument again(services.services);
  ASSERT_TRUE(again.Load(other));
  EXPECT_THAT(again.PastedImages(), IsEmpty()) << "no picture";
  const FolderItem copy = Jpeg(Jfif());
  ASSERT_EQ(MetadataCopy(again.OriginalSource(), MetadataCopy::Rule::kAll, again.MetadataPacket())
                .Into(copy, {40, 30}),
            "");
  EXPECT_EQ(PhotoFacts::Of(copy).Title, "A title");
  EXPECT_EQ(PhotoFacts::Of(copy).Creator, "Anna Beispiel");
}

TEST_F(Drafts, ManyPhotosGetTheSameAndKeepTheirOwn) {
  const FolderItem a = Told();
  const FolderItem b = folder.Write("b.jpg", "\xFF\xD8" + Jfif() + Rest());
  Change(b, {{Act::kAdd, kXmp, "dc:subject", "sea"},
             {Act::kAdd, kXmp, "dc:subject", "boat"},
             {Act::kSet, kExif, "9003", "2009-03-04 23:30:00"}});
  const FolderItem text = folder.Write("c.txt", "text");
  const std::string before = Content(a);
  Jobs::Control control;
  const auto common = ManyInfos::Read({a, b, text}, control);
  ASSERT_TRUE(common);
  EXPECT_THAT(common->Words, ElementsAre("sea"));
  EXPECT_THAT(common->Differing, testing::Contains(kCreator));
  ManyInfos::Order order;
  order.Fields = {{kTitle, {"A title"}}};
  order.GoneWords = {"sea"};
  order.NewWords = {"sun"};
  order.Shift = 3600;
  ManyInfos::Result result;
  ManyInfos::Give({a, b, text}, order, result, control);
  EXPECT_EQ(result.Given.size(), 2U);
  EXPECT_THAT(result.Failed, ElementsAre(HasSubstr("c.txt")));
  EXPECT_EQ(PhotoFacts::Of(a).Title, "A title");
  EXPECT_EQ(Words(a), std::vector<std::string>({"sky", "only here", "sun"}));
  EXPECT_THAT(PhotoFacts::Of(b).Keywords, ElementsAre("boat", "sun"));
  EXPECT_EQ(PhotoFacts::Of(b).Taken->Text(), "2009-03-05 00:30:00");
  EXPECT_FALSE(PhotoFacts::Of(a).Taken) << "a moment that nobody told is not shifted";
  EXPECT_THAT(ManyInfos::TakeBack(result.Given, control), IsEmpty());
  EXPECT_EQ(PhotoFacts::Of(a).Title, "");
  EXPECT_THAT(PhotoFacts::Of(b).Keywords, ElementsAre("sea", "boat"));
  EXPECT_EQ(PhotoFacts::Of(b).Taken->Text(), "2009-03-04 23:30:00");
}

}  // namespace
}  // namespace brivolant::test
