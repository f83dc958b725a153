// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "platform/values/Text.h"

namespace brivolant {

/// Texts of the menu bar.
namespace Menus {
inline constexpr LocalizedText FileMenu{"Menus.FileMenu", "&File"};
inline constexpr LocalizedText EditMenu{"Menus.EditMenu", "&Edit"};
inline constexpr LocalizedText ViewMenu{"Menus.ViewMenu", "&View"};
inline constexpr LocalizedText WindowMenu{"Menus.WindowMenu", "Window"};
inline constexpr LocalizedText HelpMenu{"Menus.HelpMenu", "&Help"};

inline constexpr LocalizedText kFileNewFromClipboard{"Menus.kFileNewFromClipboard",
                                                     "New From Clipboard"};
inline constexpr LocalizedText kFileOpen{"Menus.kFileOpen", "&Open..."};
inline constexpr LocalizedText KFileOpenRecent{"Menus.KFileOpenRecent", "Open Recent"};
inline constexpr LocalizedText kOpenRecentClearRecentMenu{"Menus.kOpenRecentClearRecentMenu",
                                                          "Clear Menu"};
inline constexpr LocalizedText kFileClose{"Menus.kFileClose", "&Close Window"};
inline constexpr LocalizedText kFileSave{"Menus.kFileSave", "&Save"};
inline constexpr LocalizedText kFileSaveCopyAs{"Menus.kFileSaveCopyAs", "Save As Copy..."};
inline constexpr LocalizedText kFileRestoreToOriginal{"Menus.kFileRestoreToOriginal",
                                                      "&Rewind To Original"};
inline constexpr LocalizedText kFileRestoreToOriginalBalloonHelp{
    "Menus.kFileRestoreToOriginalBalloonHelp",
    "Takes back all changes and shows the photo as it was taken."};
inline constexpr LocalizedText kFileGetInfo{"Menus.kFileGetInfo", "Get &Info..."};
inline constexpr LocalizedText kFileEditInfo{"Menus.kFileEditInfo", "Edit Info..."};
inline constexpr LocalizedText kQuickLook{"Menus.kQuickLook", "Quick Look"};
inline constexpr LocalizedText kFileShowOriginal{"Menus.kFileShowOriginal", "Show Original"};
inline constexpr LocalizedText kFileShowInFinder{"Menus.kFileShowInFinder", "Show In Finder"};
inline constexpr LocalizedText kAddToSidebar{"Menus.kAddToSidebar", "Add To Sidebar"};
inline constexpr LocalizedText kFileMoveToTrash{"Menus.kFileMoveToTrash", "Move To Trash"};
inline constexpr LocalizedText kFileQuit{"Menus.kFileQuit", "&Quit"};

inline constexpr LocalizedText kFileRename{"Menus.kFileRename", "Rename"};
inline constexpr LocalizedText kFileAddToFavorites{"Menus.kFileAddToFavorites", "Add To Favorites"};
inline constexpr LocalizedText kFileShare{"Menus.kFileShare", "Share Via"};
inline constexpr LocalizedText kFileShareDevice{"Menus.kFileShareDevice", "Other"};
inline constexpr LocalizedText kFileShareDesktop{"Menus.kFileShareDesktop",
                                                 "Set as Desktop Picture"};
inline constexpr LocalizedText kEditUndo{"Menus.kEditUndo", "&Undo"};
inline constexpr LocalizedText kEditRedo{"Menus.kEditRedo", "Red&o"};
inline constexpr LocalizedText kEditCopy{"Menus.kEditCopy", "&Copy"};
inline constexpr LocalizedText kEditSelectAll{"Menus.kEditSelectAll", "Select &All"};
inline constexpr LocalizedText kEditSelectNone{"Menus.kEditSelectNone", "Select &None"};
inline constexpr LocalizedText kEditCopyStyle{"Menus.kEditCopyStyle", "Copy Style"};
inline constexpr LocalizedText kEditPaste{"Menus.kEditPaste", "&Paste"};
inline constexpr LocalizedText kEditPasteStyle{"Menus.kEditPasteStyle", "Paste Style"};
inline constexpr LocalizedText kEditCopyEdits{"Menus.kEditCopyEdits", "Copy Edits"};
inline constexpr LocalizedText kEditPasteEdits{"Menus.kEditPasteEdits", "Paste Edits..."};
inline constexpr LocalizedText kEditPasteEditsUndo{"Menus.kEditPasteEditsUndo", "Paste Edits"};
inline constexpr LocalizedText kEditApplyStyle{"Menus.kEditApplyStyle", "Apply 1-Click Style"};
inline constexpr LocalizedText kFileSaveStyleAs{"Menus.kFileSaveStyleAs",
                                                "Save As 1-Click Style..."};
inline constexpr LocalizedText kEditClearStyle{"Menus.kEditClearStyle", "Clear Style"};
inline constexpr LocalizedText kFileApplyLastStyle{"Menus.kFileApplyLastStyle",
                                                   "Use Style From Last PIcture"};
inline constexpr LocalizedText kRotateAndFlipRotate90{"Menus.kRotateAndFlipRotate90",
                                                      "Rotate 90\xCB\x99 Clockwise"};
inline constexpr LocalizedText kRotateAndFlipRotate180{"Menus.kRotateAndFlipRotate180",
                                                       "Rotate 180\xCB\x99 Clockwise"};
inline constexpr LocalizedText kRotateAndFlipRotate270{"Menus.kRotateAndFlipRotate270",
                                                       "Rotate 270\xCB\x99 Clockwise"};
inline constexpr LocalizedText kEditChangeOrientation{"Menus.kEditChangeOrientation",
                                                      "Change Orientation"};
inline constexpr LocalizedText kRotateAndFlipFlipHorizontally{
    "Menus.kRotateAndFlipFlipHorizontally", "Flip Horizontally"};
inline constexpr LocalizedText kRotateAndFlipFlipVertically{"Menus.kRotateAndFlipFlipVertically",
                                                            "Flip Vertically"};
inline constexpr LocalizedText kEditCrop{"Menus.kEditCrop", "Crop"};
inline constexpr LocalizedText kEditPreferences{"Menus.kEditPreferences", "Preferences..."};

inline constexpr LocalizedText kViewShowColors{"Menus.kViewShowColors", "Show Colors"};
inline constexpr LocalizedText kViewBrowseMyPhotos{"Menus.kViewBrowseMyPhotos", "Photo Browser"};
inline constexpr LocalizedText kViewAsIcons{"Menus.kViewAsIcons", "As Icons"};
inline constexpr LocalizedText kViewAsList{"Menus.kViewAsList", "As List"};
inline constexpr LocalizedText kViewAsColumns{"Menus.kViewAsColumns", "As Columns"};
inline constexpr LocalizedText kViewSortBy{"Menus.kViewSortBy", "Sort By"};
inline constexpr LocalizedText kViewSortDescending{"Menus.kViewSortDescending", "Reversed Order"};
inline constexpr LocalizedText kViewShowHiddenFiles{"Menus.kViewShowHiddenFiles",
                                                    "Show Hidden Files"};
inline constexpr LocalizedText kViewReturnToEditor{"Menus.kViewReturnToEditor", "Photo Editor"};
inline constexpr LocalizedText kViewBeforeAndAfter{"Menus.kViewBeforeAndAfter", "Before && After"};
inline constexpr LocalizedText kViewFullScreenPicture{"Menus.kViewFullScreenPicture",
                                                      "Picture Full Screen"};
inline constexpr LocalizedText kViewZoomIn{"Menus.kViewZoomIn", "Zoom In"};
inline constexpr LocalizedText kViewZoomOut{"Menus.kViewZoomOut", "Zoom Out"};
inline constexpr LocalizedText kViewZoomToFit{"Menus.kViewZoomToFit", "Zoom To Fit"};
inline constexpr LocalizedText kViewActualSize{"Menus.kViewActualSize", "Actual Size"};
inline constexpr LocalizedText kViewAdvancedOptions{"Menus.kViewAdvancedOptions",
                                                    "Advanced Options"};
inline constexpr LocalizedText kViewHideToolBar{"Menus.kViewHideToolBar", "Hide Toolbar"};
inline constexpr LocalizedText kViewHideToolBarHidden{"Menus.kViewHideToolBarHidden",
                                                      "Show Toolbar"};
inline constexpr LocalizedText kViewCustomizeToolbar{"Menus.kViewCustomizeToolbar",
                                                     "Customize Toolbar"};
inline constexpr LocalizedText kViewIconText{"Menus.kViewIconText", "Icon && Text"};
inline constexpr LocalizedText kViewIconOnly{"Menus.kViewIconOnly", "Icon Only"};
inline constexpr LocalizedText kViewTextOnly{"Menus.kViewTextOnly", "Text Only"};
inline constexpr LocalizedText kViewUseSmallSize{"Menus.kViewUseSmallSize", "Use Small Size"};

inline constexpr LocalizedText kWindowMinimize{"Menus.kWindowMinimize", "Minimize"};
inline constexpr LocalizedText kWindowZoom{"Menus.kWindowZoom", "Zoom"};
inline constexpr LocalizedText kWindowBringAllToFront{"Menus.kWindowBringAllToFront",
                                                      "Bring All To Front"};

inline constexpr LocalizedText kHelpWebPage{"Menus.kHelpWebPage", "<ApplicationName> Web Page..."};
inline constexpr LocalizedText kHelpAbout{"Menus.kHelpAbout", "About <ApplicationName>..."};
}  // namespace Menus

/// One entry of the menu bar.
struct MenuEntry {
  /// Of the command; null for a separator.
  const char* name = nullptr;
  /// Entries of a submenu; empty for an item. They may also be made at run time.
  std::span<const MenuEntry> children{};
  bool submenu = false;
};
struct MenuTable {
  const char* name;
  const LocalizedText* text;
  std::span<const MenuEntry> entries;
};

/// The menus, left to right. Items of parts of the program that are not there yet join with them.
std::span<const MenuTable> MainMenus();

}  // namespace brivolant
