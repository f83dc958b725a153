// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>
#include <string>

#include "platform/files/FileType.h"

namespace brivolant {

/// The program's own file types.
namespace InternalFileTypes {
inline constexpr std::string_view kCreator = "QMBP";
inline constexpr FileType BrivolantPhotosOneClickWonder{
    {"FileTypes.kBrivolantPhotosOneClickWonder", "Brivolant Photos 1-Click Style"},
    "oneClick",
    "onCW",
    kCreator,
    {}};
inline constexpr FileType BrivolantPhotosDocument{
    {"FileTypes.kBrivolantPhotosDocument", "Brivolant Photos Document"},
    "brvPhoto",
    "brPh",
    kCreator,
    {}};
inline constexpr FileType BrivolantPhotosBorder{
    {"FileTypes.kBrivolantPhotosBorder", "Brivolant Photos Border"},
    "brvBorder",
    "BORD",
    kCreator,
    {}};
inline constexpr FileType BrivolantPhotosTextEffects{
    {"FileTypes.kBrivolantPhotosTextEffects", "Brivolant Photos Text Effects"},
    "brvEffects",
    "TXEF",
    kCreator,
    {}};
inline constexpr FileType BrivolantPhotosCombinerLayouts{
    {"FileTypes.kBrivolantPhotosCombinerLayouts", "Brivolant Photos Combiner Layouts"},
    "cLay",
    "cLay",
    kCreator,
    {}};
inline constexpr FileType BrivolantPhotosSidebarItems{
    {"FileTypes.kBrivolantPhotosSidebarItems", "Brivolant Photos Sidebar Items"},
    "sbit",
    "sbit",
    kCreator,
    {}};
inline constexpr FileType BrivolantPhotosHelpLink{
    {"FileTypes.kBrivolantPhotosHelpLink", "Brivolant Photos Help Link"},
    "brvhlnk",
    "HLNK",
    kCreator,
    {}};
inline constexpr std::array<const FileType*, 7> kAll{
    &BrivolantPhotosOneClickWonder, &BrivolantPhotosDocument,        &BrivolantPhotosBorder,
    &BrivolantPhotosTextEffects,    &BrivolantPhotosCombinerLayouts, &BrivolantPhotosSidebarItems,
    &BrivolantPhotosHelpLink};
}  // namespace InternalFileTypes

/// Image formats that can be read beyond those that are written too.
namespace ImagesReadableMac {
/// The common ones.
inline constexpr std::array<FileType, 5> kCommon{{
    {{"FileTypes.kWebP", "WebP image"}, "webp", "", "", ""},
    {{"FileTypes.kHEIF", "HEIF image"}, "heic;heif;avif", "", "", ""},
    {{"FileTypes.kSVG", "SVG image"}, "svg;svgz", "", "", ""},
    {{"FileTypes.kJpegXL", "JPEG XL image"}, "jxl", "", "", ""},
    {{"FileTypes.kNetpbm", "Netpbm image"}, "ppm;pgm;pbm;pfm", "", "", ""},
}};
/// The special ones; what cameras write has the extensions that the codec knows.
std::span<const FileType> Types();
/// The names of the special ones, each followed by a semicolon.
std::string All();
}  // namespace ImagesReadableMac

/// The extensions of everything that a picture can be read from, each once, with semicolons between
/// them.
std::string ReadableExtensions();

/// Image formats that can be written.
namespace ImagesWritableMac {
inline constexpr FileType Jpeg{
    {"FileTypes.kJpeg", "JPEG image"}, "jpg;jpe;jpeg", "JPEG", "", "public.jpeg"};
inline constexpr FileType JPEG2000{
    {"FileTypes.kJPEG2000", "JPEG 2000 image"}, "jp2", "", "", "public.jpeg-2000"};
inline constexpr FileType WindowsBitmap{
    {"FileTypes.kWindowsBitmap", "Windows bitmap image"}, "bmp", "", "", "com.microsoft.bmp"};
inline constexpr FileType PNG{{"FileTypes.kPNG", "PNG image"}, "png", "PNGf", "", "public.png"};
inline constexpr FileType PDF{{"FileTypes.kPDF", "PDF document"}, "pdf", "", "", "com.adobe.pdf"};
inline constexpr FileType Photoshop{{"FileTypes.kPhotoshop", "Adobe Photoshop document"},
                                    "psd",
                                    "",
                                    "",
                                    "com.adobe.photoshop-image"};
inline constexpr FileType GIF{{"FileTypes.kGIF", "GIF Image"}, "gif", "", "", "com.compuserve.gif"};
inline constexpr FileType TIFF{
    {"FileTypes.kTIFF", "TIFF image"}, "tif;tiff", "TIFF", "", "public.tiff"};
inline constexpr FileType PICT{
    {"FileTypes.kPICT", "PICT image"}, "pct;pict;pic", "PICT", "", "com.apple.pict"};
inline constexpr FileType SGI{
    {"FileTypes.kSGI", "Silicon Graphics image"}, "sgi", ".SGI", "", "com.sgi.sgi-image"};
inline constexpr FileType TGA{
    {"FileTypes.kTGA", "TGA image"}, "tga;targa", "TPIC", "", "com.truevision.tga-image"};
inline constexpr std::array<const FileType*, 11> kTypes{
    &Jpeg, &JPEG2000, &WindowsBitmap, &PNG, &PDF, &Photoshop, &GIF, &TIFF, &PICT, &SGI, &TGA};
/// The names, each followed by a semicolon.
std::string All();
/// The type with that identifier, or null.
const FileType* WithIdentifier(std::string_view identifier);
}  // namespace ImagesWritableMac

}  // namespace brivolant
