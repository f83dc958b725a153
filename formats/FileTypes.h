// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "platform/files/FileType.h"

namespace brivolant {

/// The program's own file types.
namespace InternalFileTypes {
inline constexpr std::string_view kCreator = "QMBP";
inline constexpr FileType BrivolantPhotosOneClickWonder{
    "Brivolant Photos 1-Click Style", "oneClick", "onCW", kCreator, {}};
inline constexpr FileType BrivolantPhotosDocument{
    "Brivolant Photos Document", "brvPhoto", "brPh", kCreator, {}};
inline constexpr FileType BrivolantPhotosBorder{
    "Brivolant Photos Border", "brvBorder", "BORD", kCreator, {}};
inline constexpr FileType BrivolantPhotosTextEffects{
    "Brivolant Photos Text Effects", "brvEffects", "TXEF", kCreator, {}};
inline constexpr FileType BrivolantPhotosCombinerLayouts{
    "Brivolant Photos Combiner Layouts", "cLay", "cLay", kCreator, {}};
inline constexpr FileType BrivolantPhotosSidebarItems{
    "Brivolant Photos Sidebar Items", "sbit", "sbit", kCreator, {}};
inline constexpr FileType BrivolantPhotosHelpLink{
    "Brivolant Photos Help Link", "brvhlnk", "HLNK", kCreator, {}};
inline constexpr std::array<const FileType*, 7> kAll{
    &BrivolantPhotosOneClickWonder, &BrivolantPhotosDocument,        &BrivolantPhotosBorder,
    &BrivolantPhotosTextEffects,    &BrivolantPhotosCombinerLayouts, &BrivolantPhotosSidebarItems,
    &BrivolantPhotosHelpLink};
}  // namespace InternalFileTypes

/// Image formats that can be read beyond the common ones.
namespace ImagesReadableMac {
inline constexpr std::array<FileType, 7> kTypes{{
    {"Industrial Light & Magic EXR", "exr", "", "", ""},
    {"Raw Images", "dng;cr2;crw;orf;nef;srf;mrw;raf;dcr", "", "", ""},
    {"Radience", "hdr", "", "", ""},
    {"FlashPix", "fpx;fpix", "", "", ""},
    {"Encapsulated PostScript", "eps", "", "", ""},
    {"MacPaint", "pnt;pntg;mac", "PNTG", "", ""},
    {"xBitmap Image", "xbm", "", "", ""},
}};
/// The names, each followed by a semicolon.
std::string All();
}  // namespace ImagesReadableMac

/// Image formats that can be written.
namespace ImagesWritableMac {
inline constexpr FileType Jpeg{"JPEG image", "jpg;jpe;jpeg", "JPEG", "", "public.jpeg"};
inline constexpr FileType JPEG2000{"JPEG 2000 image", "jp2", "", "", "public.jpeg-2000"};
inline constexpr FileType WindowsBitmap{"Windows bitmap image", "bmp", "", "", "com.microsoft.bmp"};
inline constexpr FileType PNG{"PNG image", "png", "PNGf", "", "public.png"};
inline constexpr FileType PDF{"PDF document", "pdf", "", "", "com.adobe.pdf"};
inline constexpr FileType Photoshop{"Adobe Photoshop document", "psd", "", "",
                                    "com.adobe.photoshop-image"};
inline constexpr FileType GIF{"GIF Image", "gif", "", "", "com.compuserve.gif"};
inline constexpr FileType TIFF{"TIFF image", "tif;tiff", "TIFF", "", "public.tiff"};
inline constexpr FileType PICT{"PICT image", "pct;pict;pic", "PICT", "", "com.apple.pict"};
inline constexpr FileType SGI{"Silicon Graphics image", "sgi", ".SGI", "", "com.sgi.sgi-image"};
inline constexpr FileType TGA{"TGA image", "tga;targa", "TPIC", "", "com.truevision.tga-image"};
inline constexpr std::array<const FileType*, 11> kTypes{
    &Jpeg, &JPEG2000, &WindowsBitmap, &PNG, &PDF, &Photoshop, &GIF, &TIFF, &PICT, &SGI, &TGA};
/// The names, each followed by a semicolon.
std::string All();
/// The type with that identifier, or null.
const FileType* WithIdentifier(std::string_view identifier);
}  // namespace ImagesWritableMac

}  // namespace brivolant
