<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: MIT -->
<!-- What this desktop says, where the texts of the sources say it otherwise. -->
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="App.k1ClickAddedExplaination">
        <source>The 1-Click Style "&lt;filename&gt;" was successfully added to the list and it now avilable for use in the "&lt;catName&gt;" category.</source>
        <translation>The 1-Click Style "&lt;filename&gt;" was added to the list, and is now available in the "&lt;catName&gt;" category.</translation>
    </message>
    <message id="App.kNoDocuments">
        <source>Unable to create a UserCreatedElements folder as the users documents folder doesn't exist.</source>
        <translation>Your own styles and other elements cannot be kept, because there is no folder for documents.</translation>
    </message>
    <message id="BrivolantDocument.kMissingSettings">
        <source>Missing the settings segment form the data file.</source>
        <translation>The document is incomplete: its settings are missing.</translation>
    </message>
    <message id="BrivolantDocument.kNoSettingsFile">
        <source>Unable to create settings file</source>
        <translation>The settings of the document could not be written.</translation>
    </message>
    <message id="BrivolantDocument.kNotCreated">
        <source>Something went wrong and the file hasn't been created.</source>
        <translation>Something went wrong, and the file was not created.</translation>
    </message>
    <message id="BrivolantDocument.kUnreadableSettings">
        <source>Unable to read the settings segment form the data file.</source>
        <translation>The settings of the document cannot be read.</translation>
    </message>
    <message id="BrivolantDocument.kWrongTrailer">
        <source>Brivolant Photos Data is screwed.</source>
        <translation>This file does not hold a Brivolant Photos document.</translation>
    </message>
    <message id="FileTypes.kGIF">
        <source>GIF Image</source>
        <translation>GIF image</translation>
    </message>
    <message id="FileTypes.kRadiance">
        <source>Radience</source>
        <translation>Radiance</translation>
    </message>
    <message id="FileTypes.kXBitmap">
        <source>xBitmap Image</source>
        <translation>X bitmap image</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorParentisNIL">
        <source>The folder or disk that this file was in or intended to be in no longer exists. Suggest either selecting another file or using a different location.</source>
        <translation>The folder or disk of this file no longer exists. Please select another file or use a different location.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonBrokenAlias">
        <source>the file is a broken alias file. The original file that this alias points to cannot be found.</source>
        <translation>the file is a broken link. The original file that it points to cannot be found.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonCannotRead">
        <source>you do not have the correct permissions to read this file, please correct the permissions using the Finder and try again.</source>
        <translation>you do not have permission to read this file. Please correct its permissions in the file manager and try again.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonCannotWrite">
        <source>the file is either locked, on a locked disk or you do not have permission to save into that particular folder or disk. Suggest choosing a different location to save the file.</source>
        <translation>the file is either locked, on a locked disk, or you do not have permission to save into that folder or disk. Please choose a different location to save the file.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonFolderAlreadyExists">
        <source>a folder with the same name already exists in that location, either delete that folder or choose a different name before trying again.</source>
        <translation>a folder with the same name already exists at that location. Either delete that folder or choose a different name before trying again.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonNotExists">
        <source>the file no longer exists at this location, eiher it has been moved or deleted. Please either select the new file's location or choose a different file before trying again.</source>
        <translation>the file is no longer at this location: it has either been moved or deleted. Please select the file's new location or choose a different file before trying again.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorSaveWithOutFolderItem">
        <source>&lt;applicationName&gt; Was Unable To Open The File</source>
        <translation>&lt;applicationName&gt; Was Unable To Save The File</translation>
    </message>
    <message id="ImageIO.kDeadAlias">
        <source>Dead Alias/Link: &lt;path&gt;</source>
        <translation>Broken link: &lt;path&gt;</translation>
    </message>
    <message id="LanguageTools.kLanguageAzerbaijan">
        <source>Azerbaijan (Cyrillic)</source>
        <translation>Azerbaijani (Cyrillic)</translation>
    </message>
    <message id="LanguageTools.kLanguageAzerbaijanArabic">
        <source>Azerbaijan (Arabic)</source>
        <translation>Azerbaijani (Arabic)</translation>
    </message>
    <message id="LanguageTools.kLanguageCroation">
        <source>Croation</source>
        <translation>Croatian</translation>
    </message>
    <message id="LanguageTools.kLanguageDzongka">
        <source>Dzongka</source>
        <translation>Dzongkha</translation>
    </message>
    <message id="LanguageTools.kLanguageLapponian">
        <source>Lapponian</source>
        <translation>Sami</translation>
    </message>
    <message id="LanguageTools.kLanguageMalayArabic">
        <source>Malayalan (Arabic)</source>
        <translation>Malay (Arabic)</translation>
    </message>
    <message id="LanguageTools.kLanguageMalayRoman">
        <source>Malayalan (Roman)</source>
        <translation>Malay (Roman)</translation>
    </message>
    <message id="LanguageTools.kLanguageSinhalse">
        <source>Sinhalse</source>
        <translation>Sinhalese</translation>
    </message>
    <message id="LanguageTools.kLanguageSudaneseRoman">
        <source>Sudanese</source>
        <translation>Sundanese</translation>
    </message>
    <message id="MainWindow.kAskToSaveExplaination">
        <source>If you choose not to save the changes you have made to the photo, they will be lost.</source>
        <translation>If you do not save the changes that you have made to the photo, they will be lost.</translation>
    </message>
    <message id="MainWindow.kBrokenAliasMessage">
        <source>The original of the alias "&lt;filename&gt;" cannot be found.</source>
        <translation>The original of the link "&lt;filename&gt;" cannot be found.</translation>
    </message>
    <message id="MainWindow.kDelete1ClickExplaination">
        <source>If you remove this 1-Click Style, the file will be moved to the Trash. Giving you the opportunity to undo this action, however once you empty your Trash it will be gone forever.</source>
        <translation>If you remove this 1-Click Style, its file is moved to the Trash. There you can still get it back; once you empty the Trash, it is gone forever.</translation>
    </message>
    <message id="MainWindow.kDeleteAlias">
        <source>Delete Alias</source>
        <translation>Delete Link</translation>
    </message>
    <message id="MainWindow.kLocked1ClickExplaination">
        <source>In order to edit &lt;filename&gt; it must either be unlocked in the finder or copied to a writeable drive first, such as your hard drive.</source>
        <translation>In order to edit &lt;filename&gt;, either unlock it in the file manager or copy it to a writable disk first, such as your hard drive.</translation>
    </message>
    <message id="MainWindow.kLocked1ClickMessage">
        <source>Editing of &lt;filename&gt; is prohibited because it is eiher locked or stored on a locked drive/disk, such as a CD-ROM</source>
        <translation>&lt;filename&gt; cannot be edited, because it is either locked or stored on a locked disk, such as a CD-ROM.</translation>
    </message>
    <message id="MainWindow.kShowInFinder">
        <source>Show In Finder</source>
        <translation>Show In File Manager</translation>
    </message>
    <message id="Menus.kFileApplyLastStyle">
        <source>Use Style From Last PIcture</source>
        <translation>Use Style From Last Picture</translation>
    </message>
    <message id="Menus.kFileShowInFinder">
        <source>Show In Finder</source>
        <translation>Show In File Manager</translation>
    </message>
    <message id="Menus.kRotateAndFlipRotate180">
        <source>Rotate 180˙ Clockwise</source>
        <translation>Rotate 180° Clockwise</translation>
    </message>
    <message id="Menus.kRotateAndFlipRotate270">
        <source>Rotate 270˙ Clockwise</source>
        <translation>Rotate 270° Clockwise</translation>
    </message>
    <message id="Menus.kRotateAndFlipRotate90">
        <source>Rotate 90˙ Clockwise</source>
        <translation>Rotate 90° Clockwise</translation>
    </message>
    <message id="PreferencesWindow.kPreferredEmailClient">
        <source>e-mail application:</source>
        <translation>E-mail application:</translation>
    </message>
    <message id="TagCatalog.Bits Per Run length">
        <source>Bits Per Run length</source>
        <translation>Bits Per Run Length</translation>
    </message>
    <message id="TagCatalog.Components Confirguration">
        <source>Components Confirguration</source>
        <translation>Components Configuration</translation>
    </message>
    <message id="TagCatalog.GPS satelites used for measurement">
        <source>GPS satelites used for measurement</source>
        <translation>GPS satellites used for measurement</translation>
    </message>
    <message id="TagCatalog.JPEG Restat Interval">
        <source>JPEG Restat Interval</source>
        <translation>JPEG Restart Interval</translation>
    </message>
    <message id="TagCatalog.LinerizationTable">
        <source>LinerizationTable</source>
        <translation>LinearizationTable</translation>
    </message>
    <message id="TagCatalog.Number represents hundreths of a unit">
        <source>Number represents hundreths of a unit</source>
        <translation>Number represents hundredths of a unit</translation>
    </message>
    <message id="TagCatalog.Object TypeReference">
        <source>Object TypeReference</source>
        <translation>Object Type Reference</translation>
    </message>
    <message id="TagCatalog.Original Transmission reference">
        <source>Original Transmission reference</source>
        <translation>Original Transmission Reference</translation>
    </message>
    <message id="TagCatalog.Strip OffSets">
        <source>Strip OffSets</source>
        <translation>Strip Offsets</translation>
    </message>
    <message id="TagCatalog.TIFF/EPS Standard ID">
        <source>TIFF/EPS Standard ID</source>
        <translation>TIFF/EP Standard ID</translation>
    </message>
    <message id="TagCatalog.Tansparent Index">
        <source>Tansparent Index</source>
        <translation>Transparent Index</translation>
    </message>
    <message id="TagCatalog.Threshholding">
        <source>Threshholding</source>
        <translation>Thresholding</translation>
    </message>
    <message id="TagCatalog.Upsidedown">
        <source>Upsidedown</source>
        <translation>Upside Down</translation>
    </message>
    <message id="TagCatalog.Upsidedown Mirrored">
        <source>Upsidedown Mirrored</source>
        <translation>Upside Down Mirrored</translation>
    </message>
    <message id="TagCatalog.ViewingConditions">
        <source>ViewingConditions</source>
        <translation>viewingConditions</translation>
    </message>
    <message id="TagCatalog.YCBCR Coefficients">
        <source>YCBCR Coefficients</source>
        <translation>YCbCr Coefficients</translation>
    </message>
    <message id="TagCatalog.YCBCR Positioning">
        <source>YCBCR Positioning</source>
        <translation>YCbCr Positioning</translation>
    </message>
    <message id="TagCatalog.YCBCR SubSampling">
        <source>YCBCR SubSampling</source>
        <translation>YCbCr Subsampling</translation>
    </message>
    <message id="TagCatalog.lensInfo">
        <source>lensInfo</source>
        <translation>LensInfo</translation>
    </message>
    <message id="TagCatalog.redmatrixColumn">
        <source>redmatrixColumn</source>
        <translation>redMatrixColumn</translation>
    </message>
    <message id="ToolButtons.kBrowserHelp">
        <source>Return to browser to find images</source>
        <translation>Return to the browser to find images.</translation>
    </message>
    <message id="ToolButtons.kCropHelp">
        <source>Trim the fat from the picture to focus in or change the aspect ratio.</source>
        <translation>Trim the picture to what matters, or change its aspect ratio.</translation>
    </message>
    <message id="ToolButtons.kRotateHelp">
        <source>Rotate or Flip the whole image</source>
        <translation>Rotate or flip the whole image.</translation>
    </message>
    <message id="ToolButtons.kUndoHelp">
        <source>Undoes the last action you performed if available</source>
        <translation>Undoes the last action, if there is one.</translation>
    </message>
    <message id="VolumeItem.ErrorEjectFailedInUseMessage">
        <source>The device "&lt;deviceName&gt;" couldn't be ejected at the moment, because it is currently in use.</source>
        <translation>The device "&lt;deviceName&gt;" could not be ejected, because it is in use.</translation>
    </message>
    <message id="iPhotoAlbum.kTypeAsString">
        <source>iPhoto Album</source>
        <translation>Library Album</translation>
    </message>
    <message id="iPhotoRoll.kTypeAsString">
        <source>iPhoto Event</source>
        <translation>Library Event</translation>
    </message>
    <message id="iconObject.kUnableToOpen">
        <source>Unable to open the file</source>
        <translation>The file could not be opened.</translation>
    </message>
    <message id="iconObject.kUnknownFormat">
        <source>Don't understand the format of this file.</source>
        <translation>This file does not hold an icon.</translation>
    </message>
    <message id="ifkSplitter.kOnlyControls">
        <source>Sorry but currently the ifkSplitter only accepts RectControl</source>
        <translation>A splitter only takes controls.</translation>
    </message>
    <message id="multiViewFileBrowser.kAlias">
        <source>Alias</source>
        <translation>Link</translation>
    </message>
</context>
</TS>
