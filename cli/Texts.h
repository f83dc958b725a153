// SPDX-License-Identifier: MIT
#pragma once

#include "platform/values/Text.h"

/// What the command line says.
namespace brivolant::cli::texts {

inline constexpr LocalizedText kAbout{
    "cli.kAbout", "Brivolant Photos without its window: improves photos from the command line."};
inline constexpr LocalizedText kVerbose{"cli.kVerbose", "Show log lines"};
inline constexpr LocalizedText kRender{"cli.kRender", "Apply effects to images or documents"};
inline constexpr LocalizedText kModules{"cli.kModules", "List every effect and its settings"};
inline constexpr LocalizedText kStyle{"cli.kStyle", "Show the style in a style file or a document"};
inline constexpr LocalizedText kStyles{"cli.kStyles", "Work with 1-Click styles"};
inline constexpr LocalizedText kStylesList{"cli.kStylesList",
                                           "List the program's and your own styles, or a folder's"};
inline constexpr LocalizedText kStylesFolder{"cli.kStylesFolder", "A folder of .oneClick files"};
inline constexpr LocalizedText kStylesInfo{"cli.kStylesInfo", "Show what a style is made of"};
inline constexpr LocalizedText kStyleName{"cli.kStyleName", "A .oneClick file or a style's name"};
inline constexpr LocalizedText kStylesApply{"cli.kStylesApply", "Render images in a style"};
inline constexpr LocalizedText kStylesMake{"cli.kStylesMake", "Build a style from its source"};
inline constexpr LocalizedText kStylesSource{"cli.kStylesSource", "The source, a text"};
inline constexpr LocalizedText kStylesOutput{"cli.kStylesOutput", "The .oneClick file to write"};
inline constexpr LocalizedText kStylesPreview{"cli.kStylesPreview",
                                              "The picture that the preview shows"};
inline constexpr LocalizedText kStylesExtract{"cli.kStylesExtract", "Write the source of a style"};
inline constexpr LocalizedText kNoCategory{"cli.kNoCategory", "No category"};
inline constexpr LocalizedText kNotOneClick{
    "cli.kNotOneClick", "The file \"<filename>\" must be named with the extension \"oneClick\"."};
inline constexpr LocalizedText kNoSuchStyle{"cli.kNoSuchStyle",
                                            "There is no style and no file called \"<filename>\"."};
inline constexpr LocalizedText kDocument{"cli.kDocument", "Work with document packages"};
inline constexpr LocalizedText kDocumentCreate{"cli.kDocumentCreate",
                                               "Make a document package from an image"};
inline constexpr LocalizedText kDocumentInfo{"cli.kDocumentInfo", "Show what a document holds"};
inline constexpr LocalizedText kDocumentRender{"cli.kDocumentRender",
                                               "Write a document's finished picture"};
inline constexpr LocalizedText kFormats{"cli.kFormats", "List the image formats"};
inline constexpr LocalizedText kMetadata{"cli.kMetadata",
                                         "Show or change what photos tell of themselves"};
inline constexpr LocalizedText kMetadataSet{
    "cli.kMetadataSet",
    "Set a tag of the files, \"Block.Tag=Value\", or what stands in several places: title, "
    "description, creator, copyright, keywords, rating, taken, city, state, country, position. A "
    "block's tag is changed alone, a name in every place that says it (repeatable)"};
inline constexpr LocalizedText kMetadataAdd{
    "cli.kMetadataAdd", "Add a value to the list of a tag, \"Block.Tag=Value\" (repeatable)"};
inline constexpr LocalizedText kMetadataRemove{"cli.kMetadataRemove",
                                               "Remove a tag, \"Block.Tag\" (repeatable)"};
inline constexpr LocalizedText kMetadataStrip{
    "cli.kMetadataStrip", "Remove where the photo was taken, or everything: gps or all"};
inline constexpr LocalizedText kMetadataFrom{
    "cli.kMetadataFrom",
    "Take what this photo tells of itself in place of all that the files tell"};
inline constexpr LocalizedText kSidecarStays{
    "cli.kSidecarStays",
    "The file \"<filename>\" beside the photo stays, and goes along into copies."};
inline constexpr LocalizedText kCarried{
    "cli.kCarried", "What of the photo's own data goes along: all, without-place or none"};
inline constexpr LocalizedText kBadTag{
    "cli.kBadTag",
    "\"<text>\" is not of the form \"Block.Tag=Value\"; blocks are TIFF, EXIF, GPS, "
    "Interoperability, Thumbnail, IPTC, XMP and Comment."};
inline constexpr LocalizedText kBadStrip{"cli.kBadStrip",
                                         "\"<text>\" cannot be removed: use gps or all."};
inline constexpr LocalizedText kThumbnail{"cli.kThumbnail", "Write small copies of images"};

inline constexpr LocalizedText kInput{"cli.kInput", "Images or document packages"};
inline constexpr LocalizedText kImage{"cli.kImage", "An image file"};
inline constexpr LocalizedText kPackage{"cli.kPackage", "A document package"};
inline constexpr LocalizedText kStyleSource{"cli.kStyleSource",
                                            "A file of style data, or a document"};
inline constexpr LocalizedText kOutput{"cli.kOutput",
                                       "File to write; its extension names the format"};
inline constexpr LocalizedText kOutDir{"cli.kOutDir", "Folder to write into, made if missing"};
inline constexpr LocalizedText kSet{
    "cli.kSet", "Set \"Display Name.Key=Value\" and switch the effect on (repeatable)"};
inline constexpr LocalizedText kEnable{"cli.kEnable",
                                       "Switch an effect on by its display name (repeatable)"};
inline constexpr LocalizedText kStack{"cli.kStack",
                                      "Stack that what follows applies to: fore or back"};
inline constexpr LocalizedText kBlend{"cli.kBlend", "Blend mode of the foreground, 0 to 15"};
inline constexpr LocalizedText kOpacity{"cli.kOpacity", "Opacity of the foreground, 0.0 to 1.0"};
inline constexpr LocalizedText kStyleFile{"cli.kStyleFile",
                                          "Start from the style in this file, or of this name"};
inline constexpr LocalizedText kSaveStyle{"cli.kSaveStyle", "Write the resulting style data"};
inline constexpr LocalizedText kCrop{"cli.kCrop",
                                     "Crop to x,y,w,h as fractions of the image, 0.0 to 1.0"};
inline constexpr LocalizedText kRotate{"cli.kRotate", "Quarter turns clockwise, 0 to 3"};
inline constexpr LocalizedText kFlip{"cli.kFlip", "Mirror: 0 no, 1 horizontally, 2 vertically"};
inline constexpr LocalizedText kWarning{"cli.kWarning", "\"<filename>\": <text>"};
inline constexpr LocalizedText kSeed{"cli.kSeed",
                                     "Number that effects by chance follow from, to repeat them"};
inline constexpr LocalizedText kFit{"cli.kFit", "Shrink or enlarge to fit into WxH pixels"};
inline constexpr LocalizedText kQuality{"cli.kQuality", "Quality for formats that lose, 1 to 100"};
inline constexpr LocalizedText kStrict{
    "cli.kStrict", "Refuse damaged images instead of using what can be read of them"};
inline constexpr LocalizedText kJobs{"cli.kJobs",
                                     "Files worked on at once; 0 is one for each core"};
inline constexpr LocalizedText kProgress{"cli.kProgress", "Show a progress bar"};
inline constexpr LocalizedText kTiming{"cli.kTiming",
                                       "Print times and memory, one JSON line for each file"};
inline constexpr LocalizedText kJson{"cli.kJson", "Print JSON"};
inline constexpr LocalizedText kSize{"cli.kSize", "Longest side in pixels"};

inline constexpr LocalizedText kOneOutput{
    "cli.kOneOutput", "With -o there can be one input only; use --out-dir for several."};
inline constexpr LocalizedText kNeedsOutput{"cli.kNeedsOutput", "Give -o FILE or --out-dir DIR."};
inline constexpr LocalizedText kUnknownExtension{
    "cli.kUnknownExtension",
    "The extension of \"<filename>\" is not one of a format that can be written."};
inline constexpr LocalizedText kUnknownModule{"cli.kUnknownModule",
                                              "There is no effect called \"<name>\"."};
inline constexpr LocalizedText kIncompleteModule{
    "cli.kIncompleteModule", "The effect \"<name>\" is not available in this version yet."};
inline constexpr LocalizedText kLeftOut{
    "cli.kLeftOut",
    "The effect \"<name>\" was left out of \"<filename>\": it is not available in this version "
    "yet."};
inline constexpr LocalizedText kNotYet{"cli.kNotYet", "not available in this version yet"};
inline constexpr LocalizedText kUnknownKey{
    "cli.kUnknownKey", "The effect \"<name>\" has no setting \"<key>\"; it has: <keys>."};
inline constexpr LocalizedText kNoKeys{"cli.kNoKeys", "none"};
inline constexpr LocalizedText kBadSetting{
    "cli.kBadSetting", "\"<text>\" is not of the form \"Display Name.Key=Value\"."};
inline constexpr LocalizedText kBadValue{
    "cli.kBadValue", "\"<text>\" is not a value for \"<key>\", which takes a <type>."};
inline constexpr LocalizedText kBadStack{"cli.kBadStack",
                                         "\"<text>\" is not a stack: use fore or back."};
inline constexpr LocalizedText kBadCrop{
    "cli.kBadCrop", "\"<text>\" is not a crop: give x,y,w,h as fractions from 0.0 to 1.0."};
inline constexpr LocalizedText kBadOpacity{
    "cli.kBadOpacity", "\"<text>\" is not an opacity: give it from 0.0 to 1.0."};
inline constexpr LocalizedText kBadFit{"cli.kBadFit",
                                       "\"<text>\" is not a size: give it as WxH in pixels."};
inline constexpr LocalizedText kNotStyle{"cli.kNotStyle",
                                         "The file \"<filename>\" is not style data."};
inline constexpr LocalizedText kDamagedStyle{"cli.kDamagedStyle",
                                             "The style data in \"<filename>\" is damaged."};
inline constexpr LocalizedText kCannotRead{"cli.kCannotRead",
                                           "The file \"<filename>\" cannot be read."};
inline constexpr LocalizedText kCannotWrite{"cli.kCannotWrite",
                                            "The file \"<filename>\" cannot be saved: <reason>."};
inline constexpr LocalizedText kCannotMakeFolder{
    "cli.kCannotMakeFolder", "The folder \"<filename>\" cannot be made: <reason>."};
inline constexpr LocalizedText kDocumentFailed{
    "cli.kDocumentFailed", "The document \"<filename>\" cannot be opened: <reason>"};
inline constexpr LocalizedText kDocumentNotSaved{
    "cli.kDocumentNotSaved", "The document \"<filename>\" cannot be saved: <reason>"};
inline constexpr LocalizedText kExists{"cli.kExists",
                                       "\"<filename>\" exists already; it was left as it is."};
inline constexpr LocalizedText kWouldOverwrite{
    "cli.kWouldOverwrite",
    "\"<filename>\" is the original itself; it was left as it is. Choose another output."};
inline constexpr LocalizedText kInsideDocument{
    "cli.kInsideDocument",
    "\"<filename>\" lies inside a document, which only the document itself is written into. Choose "
    "another output."};

/// `text` with the name of a file, and a reason, put in.
inline std::string Of(const LocalizedText& text, const std::string& filename,
                      std::string_view reason = {}) {
  return WithPlaceholders(text.Text(), {{"<filename>", filename}, {"<reason>", reason}});
}

}  // namespace brivolant::cli::texts
