<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: MIT -->
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="AboutBox.kDescription">
        <source>Improves and keeps your photos. Every edit can be taken back.</source>
        <translation>Verbessert und bewahrt Ihre Fotos. Jede Änderung lässt sich zurücknehmen.</translation>
    </message>
    <message id="AboutBox.kLicense">
        <source>Free software, MIT license.</source>
        <translation>Freie Software, MIT-Lizenz.</translation>
    </message>
    <message id="AboutBox.kProgressLoading">
        <source>Loading &lt;ApplicationName&gt;.</source>
        <translation>&lt;ApplicationName&gt; wird geladen.</translation>
    </message>
    <message id="AboutBox.kVersion">
        <source>version</source>
        <translation>Version</translation>
    </message>
    <message id="App.kCannotOpen">
        <source>Brivolant Photos cannot open the file "&lt;filename&gt;" as it can no longer be found.</source>
        <translation>Brivolant Photos kann die Datei „&lt;filename&gt;“ nicht öffnen, weil sie nicht mehr zu finden ist.</translation>
    </message>
    <message id="App.kGiveUp">
        <source>Give Up</source>
        <translation>Aufgeben</translation>
    </message>
    <message id="App.kLater">
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message id="App.kNoDocuments">
        <source>Unable to create a UserCreatedElements folder as the users documents folder doesn't exist.</source>
        <translation>Der Ordner für Ihre eigenen Elemente lässt sich nicht anlegen, weil es den Ordner für Dokumente nicht gibt.</translation>
    </message>
    <message id="App.kRecover">
        <source>Bring Back</source>
        <translation>Zurückholen</translation>
    </message>
    <message id="App.kRecoverExplanation">
        <source>Do you want to bring them back?</source>
        <translation>Möchten Sie sie zurückholen?</translation>
    </message>
    <message id="App.kRecoverMessage">
        <source>The changes made to the photo "&lt;filename&gt;" were not saved when the program last ended.</source>
        <translation>Die Änderungen am Foto „&lt;filename&gt;“ waren nicht gesichert, als das Programm zuletzt endete.</translation>
    </message>
    <message id="App.kUnableToLoad1Click">
        <source>Sorry I was unable to open the 1-Click Style called "&lt;filename&gt;".</source>
        <translation>Der 1-Klick-Stil „&lt;filename&gt;“ ließ sich leider nicht öffnen.</translation>
    </message>
    <message id="App.kUnableToLoadBorder">
        <source>Sorry I was unable to open the Border "&lt;filename&gt;".</source>
        <translation>Der Rahmen „&lt;filename&gt;“ ließ sich leider nicht öffnen.</translation>
    </message>
    <message id="App.kUnableToLoadLayout">
        <source>Sorry I was unable to open the layout "&lt;filename&gt;".</source>
        <translation>Das Layout „&lt;filename&gt;“ ließ sich leider nicht öffnen.</translation>
    </message>
    <message id="App.kUnhandled">
        <source>Something went wrong, and the last action may not have been completed. Your photo is still open.</source>
        <translation>Etwas ging schief, und die letzte Handlung ist vielleicht unvollständig. Ihr Foto ist weiterhin geöffnet.</translation>
    </message>
    <message id="BrivolantDocument.kChangedOnDisk">
        <source>The document "&lt;filename&gt;" was changed by another program since it was opened here.</source>
        <translation>Das Dokument „&lt;filename&gt;“ wurde von einem anderen Programm geändert, seit es hier geöffnet wurde.</translation>
    </message>
    <message id="BrivolantDocument.kChangedOnDiskExplanation">
        <source>If you replace it, the edits that were made there are lost. The original photo stays.</source>
        <translation>Wenn Sie es ersetzen, gehen die dort gemachten Änderungen verloren. Das Originalfoto bleibt.</translation>
    </message>
    <message id="BrivolantDocument.kDamagedOriginal">
        <source>"&lt;filename&gt;" is the original, which is damaged; it was left as it is. Choose another place.</source>
        <translation>„&lt;filename&gt;“ ist das Original, und das ist beschädigt; es blieb, wie es ist. Wählen Sie einen anderen Ort.</translation>
    </message>
    <message id="BrivolantDocument.kMissingSettings">
        <source>Missing the settings segment form the data file.</source>
        <translation>Der Datei fehlt der Teil mit den Einstellungen.</translation>
    </message>
    <message id="BrivolantDocument.kNoOriginal">
        <source>The document "&lt;filename&gt;" names no image.</source>
        <translation>Das Dokument „&lt;filename&gt;“ nennt kein Bild.</translation>
    </message>
    <message id="BrivolantDocument.kNoSettingsFile">
        <source>Unable to create settings file</source>
        <translation>Die Datei mit den Einstellungen lässt sich nicht anlegen</translation>
    </message>
    <message id="BrivolantDocument.kNoTemporaryPackage">
        <source>The folder for temporary files cannot be written. Check the free space on the disk.</source>
        <translation>Der Ordner für vorläufige Dateien lässt sich nicht beschreiben. Prüfen Sie den freien Platz auf dem Datenträger.</translation>
    </message>
    <message id="BrivolantDocument.kNotCreated">
        <source>Something went wrong and the file hasn't been created.</source>
        <translation>Etwas ging schief, und die Datei wurde nicht angelegt.</translation>
    </message>
    <message id="BrivolantDocument.kOriginalGone">
        <source>The original of the photo "&lt;filename&gt;" cannot be found any more.</source>
        <translation>Das Original des Fotos „&lt;filename&gt;“ ist nicht mehr zu finden.</translation>
    </message>
    <message id="BrivolantDocument.kOriginalGoneExplanation">
        <source>The photo can be saved without loss as it was read, but not as the file that it was. If its disk is away, connect it first.</source>
        <translation>Das Foto kann verlustfrei so gesichert werden, wie es gelesen wurde, aber nicht als die Datei, die es war. Fehlt der Datenträger, schließen Sie ihn zuerst an.</translation>
    </message>
    <message id="BrivolantDocument.kPicturesGone">
        <source>A picture that lies over the photo "&lt;filename&gt;" cannot be found any more.</source>
        <translation>Ein Bild, das über dem Foto „&lt;filename&gt;“ liegt, ist nicht mehr zu finden.</translation>
    </message>
    <message id="BrivolantDocument.kPicturesGoneExplanation">
        <source>The document can be saved without it. If its disk is away, connect it first.</source>
        <translation>Das Dokument lässt sich ohne es sichern. Fehlt nur der Datenträger, verbinden Sie ihn zuerst.</translation>
    </message>
    <message id="BrivolantDocument.kPicturesNotSaved">
        <source>The pictures that lie over the photo could not be copied into the document.</source>
        <translation>Die Bilder, die über dem Foto liegen, konnten nicht in das Dokument kopiert werden.</translation>
    </message>
    <message id="BrivolantDocument.kReplace">
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message id="BrivolantDocument.kUnreadableSettings">
        <source>Unable to read the settings segment form the data file.</source>
        <translation>Der Teil mit den Einstellungen lässt sich nicht lesen.</translation>
    </message>
    <message id="BrivolantDocument.kWrongTrailer">
        <source>Brivolant Photos Data is screwed.</source>
        <translation>Die Brivolant-Photos-Daten sind verdorben.</translation>
    </message>
    <message id="Captions.kCancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="Captions.kDontSave">
        <source>Don't Save</source>
        <translation>Nicht sichern</translation>
    </message>
    <message id="Captions.kOK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="Captions.kSave">
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message id="CarryMetadata.kNoPlaceForData">
        <source>The copy "&lt;filename&gt;" says nothing of the photo: files of its kind have no place for that.</source>
        <translation>Die Kopie „&lt;filename&gt;“ sagt nichts über das Foto: In Dateien dieser Art ist dafür kein Platz.</translation>
    </message>
    <message id="ColorPanel.kTitle">
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message id="CropEditor.kApply">
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message id="CropEditor.kCropAspectRatio16x9">
        <source>16:9 Widescreen, High Definition or HD</source>
        <translation>16:9 Breitbild, HD</translation>
    </message>
    <message id="CropEditor.kCropAspectRatio1x1">
        <source>1:1 Square</source>
        <translation>1:1 Quadrat</translation>
    </message>
    <message id="CropEditor.kCropAspectRatio3x2">
        <source>3:2 Slightly wider Photos</source>
        <translation>3:2 Etwas breitere Fotos</translation>
    </message>
    <message id="CropEditor.kCropAspectRatio4x3">
        <source>4:3 Photo, Books, DVD, PipCard®</source>
        <translation>4:3 Foto, Bücher, DVD, PipCard®</translation>
    </message>
    <message id="CropEditor.kCropAspectRatio8x10">
        <source>8:10 Portrait Photo</source>
        <translation>8:10 Porträtfoto</translation>
    </message>
    <message id="CropEditor.kCropAspectRatioFreeForm">
        <source>Free form</source>
        <translation>Freie Form</translation>
    </message>
    <message id="CropEditor.kCurrentRatio">
        <source>Current Photo's Ratio &lt;ratio&gt;</source>
        <translation>Seitenverhältnis des Fotos &lt;ratio&gt;</translation>
    </message>
    <message id="CropEditor.kWindowTitle">
        <source>Cropping Tools</source>
        <translation>Zuschneiden</translation>
    </message>
    <message id="CropModule.kCrop">
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message id="EditInfoSheet.kBeside">
        <source>Photos of kinds that are never written keep it beside them, in files ending with ".xmp".</source>
        <translation>Bei Fotos, die selbst nie geschrieben werden, steht es daneben in Dateien mit der Endung „.xmp“.</translation>
    </message>
    <message id="EditInfoSheet.kCity">
        <source>City:</source>
        <translation>Ort:</translation>
    </message>
    <message id="EditInfoSheet.kCopyright">
        <source>Copyright:</source>
        <translation>Copyright:</translation>
    </message>
    <message id="EditInfoSheet.kCountry">
        <source>Country:</source>
        <translation>Land:</translation>
    </message>
    <message id="EditInfoSheet.kCreator">
        <source>Creator:</source>
        <translation>Urheber:</translation>
    </message>
    <message id="EditInfoSheet.kDays">
        <source> days</source>
        <translation> Tage</translation>
    </message>
    <message id="EditInfoSheet.kDescription">
        <source>Description:</source>
        <translation>Beschreibung:</translation>
    </message>
    <message id="EditInfoSheet.kDiffering">
        <source>Different values</source>
        <translation>Verschiedene Werte</translation>
    </message>
    <message id="EditInfoSheet.kHours">
        <source> hours</source>
        <translation> Stunden</translation>
    </message>
    <message id="EditInfoSheet.kKeywords">
        <source>Keywords:</source>
        <translation>Schlagwörter:</translation>
    </message>
    <message id="EditInfoSheet.kMinutes">
        <source> minutes</source>
        <translation> Minuten</translation>
    </message>
    <message id="EditInfoSheet.kNoPlace">
        <source>The position is no place on Earth. Please enter latitude and longitude.</source>
        <translation>Die Position ist kein Ort auf der Erde. Bitte geben Sie Breite und Länge ein.</translation>
    </message>
    <message id="EditInfoSheet.kNoRating">
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message id="EditInfoSheet.kPosition">
        <source>Position:</source>
        <translation>Position:</translation>
    </message>
    <message id="EditInfoSheet.kPositionHelp">
        <source>Latitude, longitude: 52.5163, 13.3777</source>
        <translation>Breite, Länge: 52.5163, 13.3777</translation>
    </message>
    <message id="EditInfoSheet.kRating">
        <source>Rating:</source>
        <translation>Bewertung:</translation>
    </message>
    <message id="EditInfoSheet.kRejected">
        <source>Rejected</source>
        <translation>Abgelehnt</translation>
    </message>
    <message id="EditInfoSheet.kSeconds">
        <source> seconds</source>
        <translation> Sekunden</translation>
    </message>
    <message id="EditInfoSheet.kState">
        <source>State or Province:</source>
        <translation>Bundesland oder Provinz:</translation>
    </message>
    <message id="EditInfoSheet.kTaken">
        <source>Date Taken:</source>
        <translation>Aufnahmedatum:</translation>
    </message>
    <message id="EditInfoSheet.kTakenLeave">
        <source>Leave as it is</source>
        <translation>Lassen, wie es ist</translation>
    </message>
    <message id="EditInfoSheet.kTakenSet">
        <source>Set to</source>
        <translation>Setzen auf</translation>
    </message>
    <message id="EditInfoSheet.kTakenShift">
        <source>Shift by</source>
        <translation>Verschieben um</translation>
    </message>
    <message id="EditInfoSheet.kTitle">
        <source>Title:</source>
        <translation>Titel:</translation>
    </message>
    <message id="EditInfoSheet.kTitleMany">
        <source>Edit Info of &lt;count&gt; Photos</source>
        <translation>Angaben zu &lt;count&gt; Fotos</translation>
    </message>
    <message id="EditInfoSheet.kTitleOne">
        <source>Edit Info of "&lt;filename&gt;"</source>
        <translation>Angaben zu „&lt;filename&gt;“</translation>
    </message>
    <message id="EditInfoSheet.kWordsHelp">
        <source>Keywords of all photos, with commas between</source>
        <translation>Schlagwörter aller Fotos, durch Kommas getrennt</translation>
    </message>
    <message id="EditSession.kNotSavedThere">
        <source>The photo "&lt;filename&gt;" could not be saved in its own place.</source>
        <translation>Das Foto „&lt;filename&gt;“ ließ sich nicht an seinem Ort sichern.</translation>
    </message>
    <message id="EditSession.kNoPicture">
        <source>The picture could not be read.</source>
        <translation>Das Bild konnte nicht gelesen werden.</translation>
    </message>
    <message id="EditSession.kNotShown">
        <source>There is not enough memory to show the photo "&lt;filename&gt;" on the whole screen.</source>
        <translation>Der Speicher reicht nicht, um das Foto „&lt;filename&gt;“ auf dem ganzen Bildschirm zu zeigen.</translation>
    </message>
    <message id="EditSession.kPlaceGone">
        <source>It is not there any more: the document or its folder was moved or deleted, or its disk is away. Nothing is lost if you save it elsewhere.</source>
        <translation>Es liegt nicht mehr dort: Das Dokument oder sein Ordner wurde bewegt oder gelöscht, oder der Datenträger fehlt. Nichts geht verloren, wenn Sie es woanders sichern.</translation>
    </message>
    <message id="EditSession.kSaveElsewhere">
        <source>Save Elsewhere...</source>
        <translation>Woanders sichern …</translation>
    </message>
    <message id="EditsController.kHaveEdits">
        <source>Of the chosen photos, &lt;count&gt; have edits of their own.</source>
        <translation>Von den gewählten Fotos haben &lt;count&gt; schon eine eigene Bearbeitung.</translation>
    </message>
    <message id="EditsController.kHaveEditsExplanation">
        <source>Their edits are replaced. Undo brings them back.</source>
        <translation>Ihre Bearbeitung wird ersetzt. Mit „Rückgängig“ kommt sie zurück.</translation>
    </message>
    <message id="FileInfo.kChangedSince">
        <source>The data of "&lt;filename&gt;" was not changed: another program has written it meanwhile. Please open it again.</source>
        <translation>Die Daten von „&lt;filename&gt;“ wurden nicht geändert: Ein anderes Programm hat sie inzwischen geschrieben. Bitte öffnen Sie sie noch einmal.</translation>
    </message>
    <message id="FileInfo.kGone">
        <source>The data of "&lt;filename&gt;" was not changed: the file is gone.</source>
        <translation>Die Daten von „&lt;filename&gt;“ wurden nicht geändert: Die Datei ist nicht mehr da.</translation>
    </message>
    <message id="FloatingMetaData.kAdd">
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message id="FloatingMetaData.kAddHelp">
        <source>Adds a tag that the file does not have yet</source>
        <translation>Fügt ein Feld hinzu, das die Datei noch nicht hat</translation>
    </message>
    <message id="FloatingMetaData.kAsk">
        <source>Do you want to save what you have changed of "&lt;filename&gt;"?</source>
        <translation>Möchten Sie sichern, was Sie an „&lt;filename&gt;“ geändert haben?</translation>
    </message>
    <message id="FloatingMetaData.kAskExplanation">
        <source>Otherwise your changes are lost.</source>
        <translation>Sonst gehen Ihre Änderungen verloren.</translation>
    </message>
    <message id="FloatingMetaData.kBeside">
        <source>This kind of file is never written. What you enter is kept beside it, in "&lt;filename&gt;".</source>
        <translation>Dateien dieser Art werden nie geschrieben. Was Sie eingeben, steht daneben in „&lt;filename&gt;“.</translation>
    </message>
    <message id="FloatingMetaData.kBroughtBack">
        <source>What you had entered when the program ended is here again, and not saved yet.</source>
        <translation>Was Sie eingegeben hatten, als das Programm endete, ist wieder da und noch nicht gesichert.</translation>
    </message>
    <message id="FloatingMetaData.kFilter">
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message id="FloatingMetaData.kInDocument">
        <source>The original photo stays as it is. What you enter is kept in the document, and goes along with every copy.</source>
        <translation>Das Originalfoto bleibt, wie es ist. Was Sie eingeben, steht im Dokument und geht mit jeder Kopie mit.</translation>
    </message>
    <message id="FloatingMetaData.kLocked">
        <source>The file or its folder is locked: its data cannot be changed.</source>
        <translation>Die Datei oder ihr Ordner ist gesperrt: Ihre Daten lassen sich nicht ändern.</translation>
    </message>
    <message id="FloatingMetaData.kNotBroughtBack">
        <source>What you had entered when the program ended does not fit any more: the file says something else now.</source>
        <translation>Was Sie eingegeben hatten, als das Programm endete, passt nicht mehr: Die Datei sagt inzwischen etwas anderes.</translation>
    </message>
    <message id="FloatingMetaData.kNotRead">
        <source>The file could not be read.</source>
        <translation>Die Datei konnte nicht gelesen werden.</translation>
    </message>
    <message id="FloatingMetaData.kReading">
        <source>Reading...</source>
        <translation>Wird gelesen …</translation>
    </message>
    <message id="FloatingMetaData.kRedoHelp">
        <source>Makes the change again</source>
        <translation>Macht die Änderung noch einmal</translation>
    </message>
    <message id="FloatingMetaData.kSaving">
        <source>Saving the data...</source>
        <translation>Die Daten werden gesichert …</translation>
    </message>
    <message id="FloatingMetaData.kUndoHelp">
        <source>Takes back the last change</source>
        <translation>Nimmt die letzte Änderung zurück</translation>
    </message>
    <message id="FloatingMetaData.kWindowTitle">
        <source>&lt;fileName&gt; Info</source>
        <translation>Informationen zu &lt;fileName&gt;</translation>
    </message>
    <message id="ImageMetaData.kEmpty">
        <source>File is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message id="ImageMetaData.kNotUnderstood">
        <source>Unable to understand the data</source>
        <translation>Die Daten sind nicht zu verstehen.</translation>
    </message>
    <message id="ImageMetaData.kUnableToRead">
        <source>Unable to read file.</source>
        <translation>Die Datei lässt sich nicht lesen.</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceBlackWhite">
        <source>Black &amp; White</source>
        <translation>Schwarzweiß</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceCMYK">
        <source>CMYK</source>
        <translation>CMYK</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceDuotone">
        <source>Duotone</source>
        <translation>Duplex</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceGrayScale">
        <source>Grayscale</source>
        <translation>Graustufen</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceIndexed">
        <source>Indexed Color</source>
        <translation>Indizierte Farben</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceLab">
        <source>Lab</source>
        <translation>Lab</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceMultichannel">
        <source>Multichannel</source>
        <translation>Mehrkanal</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceRGB">
        <source>RGB</source>
        <translation>RGB</translation>
    </message>
    <message id="ImageSummaryObject.ColorSpaceUnknown">
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message id="InfoController.kEditInfo">
        <source>Edit Info</source>
        <translation>Angaben ändern</translation>
    </message>
    <message id="InfoController.kNotGiven">
        <source>Not all photos could be changed.</source>
        <translation>Nicht alle Fotos konnten geändert werden.</translation>
    </message>
    <message id="InfoController.kNotTakenBack">
        <source>Not everything could be taken back.</source>
        <translation>Nicht alles konnte zurückgenommen werden.</translation>
    </message>
    <message id="ManyEdits.kOpenNow">
        <source>The document "&lt;filename&gt;" is being edited.</source>
        <translation>Das Dokument „&lt;filename&gt;“ wird gerade bearbeitet.</translation>
    </message>
    <message id="EditsController.kNotGiven">
        <source>The edits could not be given to all photos.</source>
        <translation>Nicht alle Fotos konnten die Bearbeitung bekommen.</translation>
    </message>
    <message id="EditsController.kNotTakenBack">
        <source>Not everything could be taken back.</source>
        <translation>Nicht alles konnte zurückgenommen werden.</translation>
    </message>
    <message id="EditsController.kOnlyOthers">
        <source>Only the Others</source>
        <translation>Nur die anderen</translation>
    </message>
    <message id="ManyEdits.kPasting">
        <source>Pasting edits...</source>
        <translation>Bearbeitung wird eingesetzt …</translation>
    </message>
    <message id="EditsController.kReplace">
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message id="EffectModuleAutoContrast.kName">
        <source>Auto Contrast</source>
        <translation>Auto-Kontrast</translation>
    </message>
    <message id="EffectModuleAutoLevels.kName">
        <source>Auto Levels</source>
        <translation>Auto-Tonwerte</translation>
    </message>
    <message id="EffectModuleBarrelDistortion.kDistortion">
        <source>Distortion:</source>
        <translation>Verzerrung:</translation>
    </message>
    <message id="EffectModuleBarrelDistortion.kName">
        <source>Barrel Distortion</source>
        <translation>Tonnenverzerrung</translation>
    </message>
    <message id="EffectModuleBitDepth.kDepth">
        <source>Bit Depth:</source>
        <translation>Farbtiefe:</translation>
    </message>
    <message id="EffectModuleBitDepth.kDepth1">
        <source>1-Bit - 2 Colors</source>
        <translation>1 Bit - 2 Farben</translation>
    </message>
    <message id="EffectModuleBitDepth.kDepth2">
        <source>2-Bit - 4 Colors</source>
        <translation>2 Bit - 4 Farben</translation>
    </message>
    <message id="EffectModuleBitDepth.kDepth4">
        <source>4-Bit - 16 Colors</source>
        <translation>4 Bit - 16 Farben</translation>
    </message>
    <message id="EffectModuleBitDepth.kDepth8">
        <source>8-Bit - 256 Colors</source>
        <translation>8 Bit - 256 Farben</translation>
    </message>
    <message id="EffectModuleBitDepth.kName">
        <source>Bit Depth Simulation</source>
        <translation>Farbtiefe</translation>
    </message>
    <message id="EffectModuleBorder.kName">
        <source>Borders</source>
        <translation>Rahmen</translation>
    </message>
    <message id="EffectModuleBrightnessContrast.kBrightness">
        <source>Brightness:</source>
        <translation>Helligkeit:</translation>
    </message>
    <message id="EffectModuleBrightnessContrast.kContrast">
        <source>Contrast:</source>
        <translation>Kontrast:</translation>
    </message>
    <message id="EffectModuleBrightnessContrast.kName">
        <source>Brightness &amp; Contrast</source>
        <translation>Helligkeit &amp; Kontrast</translation>
    </message>
    <message id="EffectModuleChannelContrast.kBlue">
        <source>Blue:</source>
        <translation>Blau:</translation>
    </message>
    <message id="EffectModuleChannelContrast.kGreen">
        <source>Green:</source>
        <translation>Grün:</translation>
    </message>
    <message id="EffectModuleChannelContrast.kName">
        <source>Channel Contrast</source>
        <translation>Kanalkontrast</translation>
    </message>
    <message id="EffectModuleChannelContrast.kRed">
        <source>Red:</source>
        <translation>Rot:</translation>
    </message>
    <message id="EffectModuleColorAdjuster.kBlue">
        <source>Blue:</source>
        <translation>Blau:</translation>
    </message>
    <message id="EffectModuleColorAdjuster.kGreen">
        <source>Green:</source>
        <translation>Grün:</translation>
    </message>
    <message id="EffectModuleColorAdjuster.kName">
        <source>Color Balance</source>
        <translation>Farbbalance</translation>
    </message>
    <message id="EffectModuleColorAdjuster.kPixel">
        <source>Pixel:</source>
        <translation>Pixel:</translation>
    </message>
    <message id="EffectModuleColorAdjuster.kRed">
        <source>Red:</source>
        <translation>Rot:</translation>
    </message>
    <message id="EffectModuleColorAdjuster.kSelect">
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message id="EffectModuleColorize.kName">
        <source>Colorize</source>
        <translation>Einfärben</translation>
    </message>
    <message id="EffectModuleColorize.kShift">
        <source>Color Shift</source>
        <translation>Farbe addieren</translation>
    </message>
    <message id="EffectModuleConfetti.kChunkyStars">
        <source>Chunky Stars</source>
        <translation>Kantige Sterne</translation>
    </message>
    <message id="EffectModuleConfetti.kConfetti">
        <source>Confetti</source>
        <translation>Konfetti</translation>
    </message>
    <message id="EffectModuleConfetti.kFatStars">
        <source>Fat Stars</source>
        <translation>Dicke Sterne</translation>
    </message>
    <message id="EffectModuleConfetti.kName">
        <source>Confetti</source>
        <translation>Konfetti</translation>
    </message>
    <message id="EffectModuleConfetti.kRandomColor">
        <source>Random Color</source>
        <translation>Zufällige Farbe</translation>
    </message>
    <message id="EffectModuleConfetti.kSkinnyStars">
        <source>Skinny Stars</source>
        <translation>Strichsterne</translation>
    </message>
    <message id="EffectModuleConfetti.kThinStars">
        <source>Thin Stars</source>
        <translation>Dünne Sterne</translation>
    </message>
    <message id="EffectModuleDiffuse.kName">
        <source>Diffuse</source>
        <translation>Streuen</translation>
    </message>
    <message id="EffectModuleDigitalFlash.kName">
        <source>Digital Flash</source>
        <translation>Digitaler Blitz</translation>
    </message>
    <message id="EffectModuleDivider.kArtisticAdjustments">
        <source>Artistic Adjustments</source>
        <translation>Künstlerisches</translation>
    </message>
    <message id="EffectModuleDivider.kColorAdjustments">
        <source>Color Adjustments</source>
        <translation>Farbe</translation>
    </message>
    <message id="EffectModuleDivider.kFinishes">
        <source>Finishing Touches</source>
        <translation>Letzter Schliff</translation>
    </message>
    <message id="EffectModuleDivider.kFixes">
        <source>Fixing Tools</source>
        <translation>Korrekturen</translation>
    </message>
    <message id="EffectModuleDuoTone.kName">
        <source>Duo Tone</source>
        <translation>Duplex</translation>
    </message>
    <message id="EffectModuleExposure.kExposure">
        <source>Exposure:</source>
        <translation>Belichtung:</translation>
    </message>
    <message id="EffectModuleExposure.kName">
        <source>Exposure</source>
        <translation>Belichtung</translation>
    </message>
    <message id="EffectModuleFlip.kBoth">
        <source>Both</source>
        <translation>Beides</translation>
    </message>
    <message id="EffectModuleFlip.kDirection">
        <source>Direction:</source>
        <translation>Richtung:</translation>
    </message>
    <message id="EffectModuleFlip.kHorizontally">
        <source>Horizontally</source>
        <translation>Waagrecht</translation>
    </message>
    <message id="EffectModuleFlip.kName">
        <source>Flip</source>
        <translation>Spiegeln</translation>
    </message>
    <message id="EffectModuleFlip.kVertically">
        <source>Vertically</source>
        <translation>Senkrecht</translation>
    </message>
    <message id="EffectModuleGaussianBlur.kName">
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message id="EffectModuleGloss.kName">
        <source>Gloss</source>
        <translation>Glanz</translation>
    </message>
    <message id="EffectModuleGreyScale.kMethod">
        <source>Method:</source>
        <translation>Methode:</translation>
    </message>
    <message id="EffectModuleGreyScale.kMethodName1">
        <source>NTSC and PAL</source>
        <translation>NTSC und PAL</translation>
    </message>
    <message id="EffectModuleGreyScale.kMethodName2">
        <source>ITU-R</source>
        <translation>ITU-R</translation>
    </message>
    <message id="EffectModuleGreyScale.kMethodName3">
        <source>Average</source>
        <translation>Mittelwert</translation>
    </message>
    <message id="EffectModuleGreyScale.kMethodName4">
        <source>Weighted Average</source>
        <translation>Gewichtetes Mittel</translation>
    </message>
    <message id="EffectModuleGreyScale.kMethodName5">
        <source>Desaturate</source>
        <translation>Entsättigen</translation>
    </message>
    <message id="EffectModuleGreyScale.kName">
        <source>Greyscale</source>
        <translation>Graustufen</translation>
    </message>
    <message id="EffectModuleHueSaturation.kHue">
        <source>Hue:</source>
        <translation>Farbton:</translation>
    </message>
    <message id="EffectModuleHueSaturation.kName">
        <source>Hue &amp; Saturation</source>
        <translation>Farbton &amp; Sättigung</translation>
    </message>
    <message id="EffectModuleHueSaturation.kSaturation">
        <source>Saturation:</source>
        <translation>Sättigung:</translation>
    </message>
    <message id="EffectModuleInterlace.kName">
        <source>Interlace</source>
        <translation>Zeilensprung</translation>
    </message>
    <message id="EffectModuleInverse.kName">
        <source>Inverse</source>
        <translation>Negativ</translation>
    </message>
    <message id="EffectModuleInverse.kOnlyLight">
        <source>Only light</source>
        <translation>Nur Helligkeit</translation>
    </message>
    <message id="EffectModuleLevels.kDark">
        <source>Black:</source>
        <translation>Schwarz:</translation>
    </message>
    <message id="EffectModuleLevels.kIn">
        <source>In</source>
        <translation>Eingang</translation>
    </message>
    <message id="EffectModuleLevels.kLight">
        <source>White:</source>
        <translation>Weiß:</translation>
    </message>
    <message id="EffectModuleLevels.kName">
        <source>Levels</source>
        <translation>Tonwerte</translation>
    </message>
    <message id="EffectModuleLevels.kOut">
        <source>Out</source>
        <translation>Ausgang</translation>
    </message>
    <message id="EffectModuleLineArt.kName">
        <source>Line Art</source>
        <translation>Strichzeichnung</translation>
    </message>
    <message id="EffectModuleLineArt.kThick">
        <source>Thick Softer Lines</source>
        <translation>Dicke, weiche Linien</translation>
    </message>
    <message id="EffectModuleLineArt.kThin">
        <source>Thinner Sharper Lines</source>
        <translation>Dünne, scharfe Linien</translation>
    </message>
    <message id="EffectModuleMosaic.kName">
        <source>Mosaic</source>
        <translation>Mosaik</translation>
    </message>
    <message id="EffectModuleMosaic.kText">
        <source>ASCII Text</source>
        <translation>ASCII-Text</translation>
    </message>
    <message id="EffectModuleMosaic.kTiles">
        <source>Tiles:</source>
        <translation>Kacheln:</translation>
    </message>
    <message id="EffectModuleMosaic.kUseBackColor">
        <source>Use Back Color:</source>
        <translation>Grund:</translation>
    </message>
    <message id="EffectModuleMosaic.kVary">
        <source>Vary:</source>
        <translation>Streuen:</translation>
    </message>
    <message id="EffectModuleMotionBlur.kDistance">
        <source>Distance:</source>
        <translation>Weg:</translation>
    </message>
    <message id="EffectModuleMotionBlur.kLinear">
        <source>Linear</source>
        <translation>Linear</translation>
    </message>
    <message id="EffectModuleMotionBlur.kName">
        <source>Motion Blur</source>
        <translation>Bewegungsunschärfe</translation>
    </message>
    <message id="EffectModuleMotionBlur.kRadial">
        <source>Radial</source>
        <translation>Radial</translation>
    </message>
    <message id="EffectModuleMotionBlur.kRepetitions">
        <source>Repetitions:</source>
        <translation>Schritte:</translation>
    </message>
    <message id="EffectModuleMotionBlur.kZoom">
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message id="EffectModuleOilPainting.kBrushSize">
        <source>Brush Size:</source>
        <translation>Pinsel:</translation>
    </message>
    <message id="EffectModuleOilPainting.kName">
        <source>Oil Painting</source>
        <translation>Ölgemälde</translation>
    </message>
    <message id="EffectModuleOilPainting.kSmoothness">
        <source>Smoothness</source>
        <translation>Glätte:</translation>
    </message>
    <message id="EffectModuleOutline.kGlass">
        <source>Glass</source>
        <translation>Glas</translation>
    </message>
    <message id="EffectModuleOutline.kName">
        <source>Matte</source>
        <translation>Passepartout</translation>
    </message>
    <message id="EffectModuleOutline.kOldTV">
        <source>Old TV</source>
        <translation>Alter Fernseher</translation>
    </message>
    <message id="EffectModuleOutline.kPixelate">
        <source>Pixelate</source>
        <translation>Pixel</translation>
    </message>
    <message id="EffectModuleOutline.kSize">
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message id="EffectModuleOverBurn.kName">
        <source>Over Burn</source>
        <translation>Überbelichtung</translation>
    </message>
    <message id="EffectModuleOverlay.kGradient">
        <source>2 Color Gradient</source>
        <translation>Verlauf aus zwei Farben</translation>
    </message>
    <message id="EffectModuleOverlay.kMissing">
        <source>The picture that the effect "&lt;name&gt;" lays over the photo cannot be found.</source>
        <translation>Das Bild, das der Effekt „&lt;name&gt;“ über das Foto legt, wurde nicht gefunden.</translation>
    </message>
    <message id="EffectModuleOverlay.kName">
        <source>Overlay</source>
        <translation>Überlagerung</translation>
    </message>
    <message id="EffectModuleOverlay.kNoCaption">
        <source> </source>
        <translation> </translation>
    </message>
    <message id="EffectModuleOverlay.kPicture">
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message id="EffectModuleOverlay.kPrompt">
        <source>Select the picture to overlay onto this layer</source>
        <translation>Bild auswählen, das über diese Ebene gelegt wird</translation>
    </message>
    <message id="EffectModuleOverlay.kSecondColor">
        <source>2nd Color:</source>
        <translation>2. Farbe:</translation>
    </message>
    <message id="EffectModuleOverlay.kSelectPicture">
        <source>Select Picture</source>
        <translation>Bild wählen</translation>
    </message>
    <message id="EffectModuleOverlay.kSingleColor">
        <source>Single Color</source>
        <translation>Eine Farbe</translation>
    </message>
    <message id="EffectModulePopArt.kName">
        <source>Pop Art</source>
        <translation>Pop-Art</translation>
    </message>
    <message id="EffectModulePosterize.kName">
        <source>Posterize</source>
        <translation>Tontrennung</translation>
    </message>
    <message id="EffectModuleReflection.kAll">
        <source>All</source>
        <translation>Ganz</translation>
    </message>
    <message id="EffectModuleReflection.kBottom">
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message id="EffectModuleReflection.kLeft">
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message id="EffectModuleReflection.kMode">
        <source>Mode:</source>
        <translation>Modus:</translation>
    </message>
    <message id="EffectModuleReflection.kName">
        <source>Reflection</source>
        <translation>Spiegelung</translation>
    </message>
    <message id="EffectModuleReflection.kRight">
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message id="EffectModuleReflection.kTop">
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message id="EffectModuleSegment.kGap">
        <source>Gap:</source>
        <translation>Lücke:</translation>
    </message>
    <message id="EffectModuleSegment.kName">
        <source>Segment</source>
        <translation>Segmente</translation>
    </message>
    <message id="EffectModuleSegment.kSegments">
        <source>Segments:</source>
        <translation>Teile:</translation>
    </message>
    <message id="EffectModuleSepia.kName">
        <source>Sepia</source>
        <translation>Sepia</translation>
    </message>
    <message id="EffectModuleShadowsHighlight.kHighlight">
        <source>Highlight:</source>
        <translation>Lichter:</translation>
    </message>
    <message id="EffectModuleShadowsHighlight.kName">
        <source>Shadow &amp; Highlight</source>
        <translation>Tiefen &amp; Lichter</translation>
    </message>
    <message id="EffectModuleShadowsHighlight.kShadow">
        <source>Shadow:</source>
        <translation>Tiefen:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kAngle">
        <source>Angle:</source>
        <translation>Winkel:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kBlur">
        <source>Blur:</source>
        <translation>Weich:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kColor">
        <source>Color:</source>
        <translation>Farbe:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kDiameter">
        <source>Diameter:</source>
        <translation>Breite:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kDropShadow">
        <source>Drop Shadow:</source>
        <translation>Schatten:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kEffect">
        <source>Effect:</source>
        <translation>Effekt:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kMaxSize">
        <source>Max Size:</source>
        <translation>Höchstgröße:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kNone">
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message id="EffectModuleSharedConstants.kOpacity">
        <source>Opacity:</source>
        <translation>Deckkraft:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kQuantity">
        <source>Quantity:</source>
        <translation>Anzahl:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kRadius">
        <source>Radius:</source>
        <translation>Radius:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kRandom">
        <source>Random</source>
        <translation>Zufällig</translation>
    </message>
    <message id="EffectModuleSharedConstants.kScale">
        <source>Scale:</source>
        <translation>Größe:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kShape">
        <source>Shape:</source>
        <translation>Form:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kShapeNameCircles">
        <source>Oval</source>
        <translation>Oval</translation>
    </message>
    <message id="EffectModuleSharedConstants.kShapeNameFlower">
        <source>Flower</source>
        <translation>Blume</translation>
    </message>
    <message id="EffectModuleSharedConstants.kShapeNameHeart">
        <source>Heart</source>
        <translation>Herz</translation>
    </message>
    <message id="EffectModuleSharedConstants.kShapeNameRoundedSquares">
        <source>Rounded Square</source>
        <translation>Abgerundetes Quadrat</translation>
    </message>
    <message id="EffectModuleSharedConstants.kShapeNameSquares">
        <source>Square</source>
        <translation>Quadrat</translation>
    </message>
    <message id="EffectModuleSharedConstants.kStrength">
        <source>Strength:</source>
        <translation>Stärke:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kThreshold">
        <source>Threshold:</source>
        <translation>Schwelle:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kType">
        <source>Type:</source>
        <translation>Art:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kbackColor">
        <source>Back Color:</source>
        <translation>Hintergrund:</translation>
    </message>
    <message id="EffectModuleSharedConstants.kuseFocalPoint">
        <source>Use a Focal Point</source>
        <translation>Schärfepunkt verwenden</translation>
    </message>
    <message id="EffectModuleSharpen.kName">
        <source>Sharpen</source>
        <translation>Schärfen</translation>
    </message>
    <message id="EffectModuleStraighten.kAngle">
        <source>Angle:</source>
        <translation>Winkel:</translation>
    </message>
    <message id="EffectModuleStraighten.kName">
        <source>Straighten</source>
        <translation>Ausrichten</translation>
    </message>
    <message id="EffectModuleString.kCircular">
        <source>Circular Lines</source>
        <translation>Kreislinien</translation>
    </message>
    <message id="EffectModuleString.kName">
        <source>Strings</source>
        <translation>Fäden</translation>
    </message>
    <message id="EffectModuleString.kVertical">
        <source>Vertical Lines</source>
        <translation>Senkrechte Linien</translation>
    </message>
    <message id="EffectModuleTechnicolor.kName">
        <source>2-Strip Technicolor Simulation</source>
        <translation>Zweifarbenfilm</translation>
    </message>
    <message id="EffectModuleText.kName">
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message id="EffectModuleTexture.kName">
        <source>Texture</source>
        <translation>Struktur</translation>
    </message>
    <message id="EffectModuleText.kAddText">
        <source>Add Text Field</source>
        <translation>Textfeld hinzufügen</translation>
    </message>
    <message id="EffectModuleText.kCaption">
        <source>Caption:</source>
        <translation>Beschriftung:</translation>
    </message>
    <message id="EffectModuleText.kNone">
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message id="EffectModuleText.kOvalSpeech">
        <source>Oval Speech</source>
        <translation>Ovale Sprechblase</translation>
    </message>
    <message id="EffectModuleText.kOvalThought">
        <source>Oval Thought</source>
        <translation>Ovale Denkblase</translation>
    </message>
    <message id="EffectModuleText.kSpeech">
        <source>Speech</source>
        <translation>Sprechblase</translation>
    </message>
    <message id="EffectModuleText.kThought">
        <source>Thought</source>
        <translation>Denkblase</translation>
    </message>
    <message id="EffectModuleText.kTypeFace">
        <source>Font:</source>
        <translation>Schrift:</translation>
    </message>
    <message id="EffectModuleTexture.kBrushedMetal">
        <source>Brushed Metal</source>
        <translation>Gebürstetes Metall</translation>
    </message>
    <message id="EffectModuleTexture.kCanvas">
        <source>Canvas</source>
        <translation>Leinwand</translation>
    </message>
    <message id="EffectModuleTexture.kConcrete">
        <source>Concrete</source>
        <translation>Beton</translation>
    </message>
    <message id="EffectModuleTexture.kCrumpledPaper">
        <source>Crumpled Paper</source>
        <translation>Zerknülltes Papier</translation>
    </message>
    <message id="EffectModuleTexture.kDust">
        <source>Dust</source>
        <translation>Staub</translation>
    </message>
    <message id="EffectModuleTexture.kFilmGrain">
        <source>Film Grain</source>
        <translation>Filmkorn</translation>
    </message>
    <message id="EffectModuleTexture.kLeather">
        <source>Leather</source>
        <translation>Leder</translation>
    </message>
    <message id="EffectModuleTexture.kLinen">
        <source>Linen</source>
        <translation>Leinen</translation>
    </message>
    <message id="EffectModuleTexture.kPaper">
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message id="EffectModuleTexture.kPlaster">
        <source>Plaster</source>
        <translation>Putz</translation>
    </message>
    <message id="EffectModuleTexture.kRain">
        <source>Rain</source>
        <translation>Regen</translation>
    </message>
    <message id="EffectModuleTexture.kScratches">
        <source>Scratches</source>
        <translation>Kratzer</translation>
    </message>
    <message id="EffectModuleTexture.kStone">
        <source>Stone</source>
        <translation>Stein</translation>
    </message>
    <message id="EffectModuleTexture.kTexture">
        <source>Texture:</source>
        <translation>Struktur:</translation>
    </message>
    <message id="EffectModuleTexture.kWood">
        <source>Wood</source>
        <translation>Holz</translation>
    </message>
    <message id="EffectModuleVignette.kName">
        <source>Vignette</source>
        <translation>Vignette</translation>
    </message>
    <message id="EffectModuleWaterdrops.kName">
        <source>Water Drops</source>
        <translation>Wassertropfen</translation>
    </message>
    <message id="EffectModuleWave.kName">
        <source>Wave</source>
        <translation>Wellen</translation>
    </message>
    <message id="EffectModuleWave.kWaves">
        <source>Waves:</source>
        <translation>Wellen:</translation>
    </message>
    <message id="EffectModuleWhiteBalance.kName">
        <source>White Balance</source>
        <translation>Weißabgleich</translation>
    </message>
    <message id="EffectModuleWhiteBalance.kTemperature">
        <source>Temperature:</source>
        <translation>Temperatur:</translation>
    </message>
    <message id="EffectStackEditor.kLabel">
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message id="EffectStackEditor.kReset">
        <source>Reset</source>
        <translation>Zurück</translation>
    </message>
    <message id="ExtendedPicture.kColorProfileNone">
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message id="FileController.kCopyChanged">
        <source>The copy &quot;&lt;filename&gt;&quot; stays: it was changed since it was made.</source>
        <translation>Die Kopie „&lt;filename&gt;“ bleibt: Sie wurde seither geändert.</translation>
    </message>
    <message id="FileController.kCopying">
        <source>Copying files...</source>
        <translation>Dateien werden kopiert …</translation>
    </message>
    <message id="FileController.kTakingBack">
        <source>Taking back...</source>
        <translation>Wird zurückgenommen …</translation>
    </message>
    <message id="FileController.kTrashing">
        <source>Moving files to the trash...</source>
        <translation>Dateien kommen in den Papierkorb …</translation>
    </message>
    <message id="FileController.kTrashOpen">
        <source>The document "&lt;filename&gt;" is open in the editor.</source>
        <translation>Das Dokument „&lt;filename&gt;“ ist im Editor geöffnet.</translation>
    </message>
    <message id="FileController.kTrashOpenExplanation">
        <source>If it goes to the trash, the editor keeps the photo, and saving it will ask for another place.</source>
        <translation>Kommt es in den Papierkorb, behält der Editor das Foto, und beim Sichern wird nach einem anderen Ort gefragt.</translation>
    </message>
    <message id="FileTypes.kBrivolantPhotosBorder">
        <source>Brivolant Photos Border</source>
        <translation>Brivolant-Photos-Rahmen</translation>
    </message>
    <message id="FileTypes.kBrivolantPhotosCombinerLayouts">
        <source>Brivolant Photos Combiner Layouts</source>
        <translation>Brivolant-Photos-Layouts</translation>
    </message>
    <message id="FileTypes.kBrivolantPhotosDocument">
        <source>Brivolant Photos Document</source>
        <translation>Brivolant-Photos-Dokument</translation>
    </message>
    <message id="FileTypes.kBrivolantPhotosHelpLink">
        <source>Brivolant Photos Help Link</source>
        <translation>Brivolant-Photos-Hilfeverweis</translation>
    </message>
    <message id="FileTypes.kBrivolantPhotosOneClickWonder">
        <source>Brivolant Photos 1-Click Style</source>
        <translation>Brivolant-Photos-1-Klick-Stil</translation>
    </message>
    <message id="FileTypes.kBrivolantPhotosSidebarItems">
        <source>Brivolant Photos Sidebar Items</source>
        <translation>Brivolant-Photos-Seitenleiste</translation>
    </message>
    <message id="FileTypes.kBrivolantPhotosTextEffects">
        <source>Brivolant Photos Text Effects</source>
        <translation>Brivolant-Photos-Texteffekte</translation>
    </message>
    <message id="FileTypes.kEPS">
        <source>Encapsulated PostScript</source>
        <translation>Encapsulated PostScript</translation>
    </message>
    <message id="FileTypes.kEXR">
        <source>Industrial Light &amp; Magic EXR</source>
        <translation>Industrial Light &amp; Magic EXR</translation>
    </message>
    <message id="FileTypes.kFlashPix">
        <source>FlashPix</source>
        <translation>FlashPix</translation>
    </message>
    <message id="FileTypes.kGIF">
        <source>GIF Image</source>
        <translation>GIF-Bild</translation>
    </message>
    <message id="FileTypes.kHEIF">
        <source>HEIF image</source>
        <translation>HEIF-Bild</translation>
    </message>
    <message id="FileTypes.kJPEG2000">
        <source>JPEG 2000 image</source>
        <translation>JPEG-2000-Bild</translation>
    </message>
    <message id="FileTypes.kJpeg">
        <source>JPEG image</source>
        <translation>JPEG-Bild</translation>
    </message>
    <message id="FileTypes.kJpegXL">
        <source>JPEG XL image</source>
        <translation>JPEG-XL-Bild</translation>
    </message>
    <message id="FileTypes.kMacPaint">
        <source>MacPaint</source>
        <translation>MacPaint</translation>
    </message>
    <message id="FileTypes.kNetpbm">
        <source>Netpbm image</source>
        <translation>Netpbm-Bild</translation>
    </message>
    <message id="FileTypes.kPDF">
        <source>PDF document</source>
        <translation>PDF-Dokument</translation>
    </message>
    <message id="FileTypes.kPICT">
        <source>PICT image</source>
        <translation>PICT-Bild</translation>
    </message>
    <message id="FileTypes.kPNG">
        <source>PNG image</source>
        <translation>PNG-Bild</translation>
    </message>
    <message id="FileTypes.kPhotoshop">
        <source>Adobe Photoshop document</source>
        <translation>Adobe-Photoshop-Dokument</translation>
    </message>
    <message id="FileTypes.kRadiance">
        <source>Radience</source>
        <translation>Radiance</translation>
    </message>
    <message id="FileTypes.kRaw">
        <source>Raw Images</source>
        <translation>Rohdaten von Kameras</translation>
    </message>
    <message id="FileTypes.kSGI">
        <source>Silicon Graphics image</source>
        <translation>Silicon-Graphics-Bild</translation>
    </message>
    <message id="FileTypes.kSVG">
        <source>SVG image</source>
        <translation>SVG-Bild</translation>
    </message>
    <message id="FileTypes.kTGA">
        <source>TGA image</source>
        <translation>TGA-Bild</translation>
    </message>
    <message id="FileTypes.kTIFF">
        <source>TIFF image</source>
        <translation>TIFF-Bild</translation>
    </message>
    <message id="FileTypes.kWebP">
        <source>WebP image</source>
        <translation>WebP-Bild</translation>
    </message>
    <message id="FileTypes.kWindowsBitmap">
        <source>Windows bitmap image</source>
        <translation>Windows-Bitmap-Bild</translation>
    </message>
    <message id="FileTypes.kXBitmap">
        <source>xBitmap Image</source>
        <translation>X-Bitmap-Bild</translation>
    </message>
    <message id="FolderitemExtensions.kDateAtTime">
        <source>&lt;date&gt; at &lt;time&gt;</source>
        <translation>&lt;date&gt; um &lt;time&gt;</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekFriday">
        <source>Friday</source>
        <translation>Freitag</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekMonday">
        <source>Monday</source>
        <translation>Montag</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekSaturday">
        <source>Saturday</source>
        <translation>Samstag</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekSunday">
        <source>Sunday</source>
        <translation>Sonntag</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekThursday">
        <source>Thursday</source>
        <translation>Donnerstag</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekToday">
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekTomorrow">
        <source>Tomorrow</source>
        <translation>Morgen</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekTuesday">
        <source>Tuesday</source>
        <translation>Dienstag</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekWednesday">
        <source>Wednesday</source>
        <translation>Mittwoch</translation>
    </message>
    <message id="FolderitemExtensions.kDayOfWeekYesterday">
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message id="FolderitemExtensions.kErrorMessageCreatingFileFailed">
        <source>The file "&lt;filename&gt;" cannot be saved as creating the file failed for an unknown reason. Please check permissions before trying again.</source>
        <translation>Die Datei „&lt;filename&gt;“ kann nicht gesichert werden, weil sie sich aus unbekanntem Grund nicht anlegen ließ. Prüfen Sie die Zugriffsrechte und versuchen Sie es noch einmal.</translation>
    </message>
    <message id="FolderitemExtensions.kErrorMessageFileContainsIncorrectData">
        <source>The file "&lt;filename&gt;" doesn't appear to contain the correct &lt;filetype&gt; data.</source>
        <translation>Die Datei „&lt;filename&gt;“ enthält offenbar keine gültigen Daten der Art „&lt;filetype&gt;“.</translation>
    </message>
    <message id="FolderitemExtensions.kErrorMessageOpeningforWriteFailed">
        <source>The file "&lt;filename&gt;" cannot be saved because the file couldn't be opened to write the data. Check the permissions on the file before trying again.</source>
        <translation>Die Datei „&lt;filename&gt;“ kann nicht gesichert werden, weil sie sich nicht zum Schreiben öffnen ließ. Prüfen Sie die Zugriffsrechte und versuchen Sie es noch einmal.</translation>
    </message>
    <message id="FolderitemExtensions.kErrorMessageUnableToRead">
        <source>Unable to open the file "&lt;filename&gt;" to read its contents. Check permissions on the file, and make sure that other programs are not using it.</source>
        <translation>Die Datei „&lt;filename&gt;“ lässt sich nicht lesen. Prüfen Sie die Zugriffsrechte und ob ein anderes Programm sie gerade benutzt.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorExplanationWithFolderitem">
        <source>The file couldn't be used because &lt;reason&gt;.</source>
        <translation>Der Grund: &lt;reason&gt;.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorExplanationWithoutFolderitem">
        <source>Please check that the file still exists and you have read and write access to the disk or folder that the file is located in.</source>
        <translation>Prüfen Sie bitte, ob es die Datei noch gibt und ob Sie auf ihren Datenträger oder Ordner lesend und schreibend zugreifen dürfen.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorOpenWithFolderItem">
        <source>&lt;applicationName&gt; Was Unable To Open The File "&lt;filename&gt;".</source>
        <translation>&lt;applicationName&gt; konnte die Datei „&lt;filename&gt;“ nicht öffnen.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorOpenWithOutFolderitem">
        <source>&lt;applicationName&gt; Was Unable To Open The File</source>
        <translation>&lt;applicationName&gt; konnte die Datei nicht öffnen</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorParentisNIL">
        <source>The folder or disk that this file was in or intended to be in no longer exists. Suggest either selecting another file or using a different location.</source>
        <translation>Den Ordner oder Datenträger der Datei gibt es nicht mehr. Wählen Sie eine andere Datei oder einen anderen Ort.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonBrokenAlias">
        <source>the file is a broken alias file. The original file that this alias points to cannot be found.</source>
        <translation>Die Datei ist eine Verknüpfung, deren Ziel nicht zu finden ist.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonCannotRead">
        <source>you do not have the correct permissions to read this file, please correct the permissions using the Finder and try again.</source>
        <translation>Sie haben nicht das Recht, diese Datei zu lesen. Ändern Sie die Zugriffsrechte und versuchen Sie es noch einmal.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonCannotWrite">
        <source>the file is either locked, on a locked disk or you do not have permission to save into that particular folder or disk. Suggest choosing a different location to save the file.</source>
        <translation>Die Datei oder ihr Datenträger ist geschützt, oder Sie dürfen in diesen Ordner nicht schreiben. Wählen Sie einen anderen Ort.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonFolderAlreadyExists">
        <source>a folder with the same name already exists in that location, either delete that folder or choose a different name before trying again.</source>
        <translation>An diesem Ort gibt es schon einen Ordner gleichen Namens. Löschen Sie ihn oder wählen Sie einen anderen Namen.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonIncorrectType">
        <source>the file is not a &lt;filetype&gt; file. Please select a different file.</source>
        <translation>Die Datei ist nicht von der Art „&lt;filetype&gt;“. Wählen Sie eine andere Datei.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorReasonNotExists">
        <source>the file no longer exists at this location, eiher it has been moved or deleted. Please either select the new file's location or choose a different file before trying again.</source>
        <translation>Die Datei ist nicht mehr da, sie wurde verschoben oder gelöscht. Wählen Sie ihren neuen Ort oder eine andere Datei.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorSaveWithFolderitem">
        <source>&lt;applicationName&gt; Was Unable To Save The File "&lt;filename&gt;".</source>
        <translation>&lt;applicationName&gt; konnte die Datei „&lt;filename&gt;“ nicht sichern.</translation>
    </message>
    <message id="FolderitemExtensions.kFileErrorSaveWithOutFolderItem">
        <source>&lt;applicationName&gt; Was Unable To Open The File</source>
        <translation>&lt;applicationName&gt; konnte die Datei nicht sichern</translation>
    </message>
    <message id="GlobalApplicationSpecificProperties.ApplicationName">
        <source>Brivolant Photos</source>
        <translation>Brivolant Photos</translation>
    </message>
    <message id="GlobalApplicationSpecificProperties.ApplicationPublisherName">
        <source>Quillmere</source>
        <translation>Quillmere</translation>
    </message>
    <message id="GlobalApplicationSpecificProperties.URLApplicationPublisher">
        <source>https://www.quillmere.example/</source>
        <translation>https://www.quillmere.example/</translation>
    </message>
    <message id="GlobalApplicationSpecificProperties.URLApplicationWebPage">
        <source>https://www.quillmere.example/brivolantphotos/</source>
        <translation>https://www.quillmere.example/brivolantphotos/</translation>
    </message>
    <message id="GlobalApplicationSpecificProperties.URLSupportEmailAddress">
        <source>support@quillmere.example</source>
        <translation>support@quillmere.example</translation>
    </message>
    <message id="GlobalApplicationSpecificProperties.URLSupportEmailProductID">
        <source>brivolantPhotos</source>
        <translation>brivolantPhotos</translation>
    </message>
    <message id="GlobalApplicationSpecificProperties.URLSupportEmailServerAddress">
        <source>https://www.quillmere.example/report</source>
        <translation>https://www.quillmere.example/report</translation>
    </message>
    <message id="ImageCodecs.kBadData">
        <source>a part of its data is missing or wrong</source>
        <translation>ein Teil seiner Daten fehlt oder ist falsch</translation>
    </message>
    <message id="ImageCodecs.kCannotWrite">
        <source>The file "&lt;filename&gt;" cannot be saved: &lt;reason&gt;.</source>
        <translation>Die Datei „&lt;filename&gt;“ kann nicht gesichert werden: &lt;reason&gt;.</translation>
    </message>
    <message id="ImageCodecs.kDamaged">
        <source>The image "&lt;filename&gt;" is damaged or incomplete (&lt;reason&gt;).</source>
        <translation>Das Bild „&lt;filename&gt;“ ist beschädigt oder unvollständig (&lt;reason&gt;).</translation>
    </message>
    <message id="ImageCodecs.kEncoderFailed">
        <source>the disk may be full or cannot be written to</source>
        <translation>der Datenträger ist vielleicht voll oder nicht beschreibbar</translation>
    </message>
    <message id="ImageCodecs.kEndsEarly">
        <source>it ends too early</source>
        <translation>es endet zu früh</translation>
    </message>
    <message id="ImageCodecs.kJpegSide">
        <source>a JPEG has at most &lt;pixels&gt; pixels a side</source>
        <translation>ein JPEG hat höchstens &lt;pixels&gt; Pixel je Seite</translation>
    </message>
    <message id="ImageCodecs.kMissing">
        <source>The file "&lt;filename&gt;" does not exist.</source>
        <translation>Die Datei „&lt;filename&gt;“ gibt es nicht.</translation>
    </message>
    <message id="ImageCodecs.kNoMemory">
        <source>There is not enough memory to open the image "&lt;filename&gt;".</source>
        <translation>Der Speicher reicht nicht, um das Bild „&lt;filename&gt;“ zu öffnen.</translation>
    </message>
    <message id="ImageCodecs.kReadInPart">
        <source>The image "&lt;filename&gt;" is damaged or incomplete (&lt;reason&gt;); it is shown as far as it can be read.</source>
        <translation>Das Bild „&lt;filename&gt;“ ist beschädigt oder unvollständig (&lt;reason&gt;); zu sehen ist, was sich lesen lässt.</translation>
    </message>
    <message id="ImageCodecs.kTooLarge">
        <source>The image "&lt;filename&gt;" is too large: it claims &lt;width&gt; x &lt;height&gt; pixels.</source>
        <translation>Das Bild „&lt;filename&gt;“ ist zu groß: Es gibt &lt;width&gt; x &lt;height&gt; Pixel an.</translation>
    </message>
    <message id="ImageCodecs.kUnknownFormat">
        <source>The file "&lt;filename&gt;" cannot be saved: its format cannot be written.</source>
        <translation>Die Datei „&lt;filename&gt;“ kann nicht gesichert werden: Ihr Format lässt sich nicht schreiben.</translation>
    </message>
    <message id="ImageCodecs.kUnreadable">
        <source>The file "&lt;filename&gt;" is not an image that can be read.</source>
        <translation>Die Datei „&lt;filename&gt;“ ist kein lesbares Bild.</translation>
    </message>
    <message id="ImageFile.kNoFile">
        <source>No File To Save To</source>
        <translation>Keine Datei zum Sichern</translation>
    </message>
    <message id="ImageFile.kNoImages">
        <source>No Images</source>
        <translation>Keine Bilder</translation>
    </message>
    <message id="ImageIO.kDeadAlias">
        <source>Dead Alias/Link: &lt;path&gt;</source>
        <translation>Verknüpfung ohne Ziel: &lt;path&gt;</translation>
    </message>
    <message id="LanguageTools.UserLanguageID">
        <source>0</source>
        <translation>3</translation>
    </message>
    <message id="LayerScale.kName">
        <source>Scale Layer</source>
        <translation>Ebene skalieren</translation>
    </message>
    <message id="MainWindow.kAllFiles">
        <source>All Files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message id="MainWindow.kAllPhotos">
        <source>Photos and Documents</source>
        <translation>Fotos und Dokumente</translation>
    </message>
    <message id="MainWindow.kAskToSaveExplaination">
        <source>If you choose not to save the changes you have made to the photo, they will be lost.</source>
        <translation>Wenn Sie die Änderungen am Foto nicht sichern, gehen sie verloren.</translation>
    </message>
    <message id="MainWindow.kAskToSaveMessage">
        <source>Do you want to save the changes you made to the photo &lt;filename&gt;?</source>
        <translation>Möchten Sie die Änderungen am Foto &lt;filename&gt; sichern?</translation>
    </message>
    <message id="MainWindow.kBackground">
        <source>Bottom Layer</source>
        <translation>Untere Ebene</translation>
    </message>
    <message id="MainWindow.kBlend">
        <source>Blend:</source>
        <translation>Modus:</translation>
    </message>
    <message id="MainWindow.kCannotReplace">
        <source>The file "&lt;filename&gt;" cannot be replaced: it could not be moved to the trash.</source>
        <translation>Die Datei „&lt;filename&gt;“ kann nicht ersetzt werden: Sie ließ sich nicht in den Papierkorb legen.</translation>
    </message>
    <message id="MainWindow.kDroppedPicture">
        <source>New Image</source>
        <translation>Neues Bild</translation>
    </message>
    <message id="MainWindow.kForeground">
        <source>Top Layer</source>
        <translation>Obere Ebene</translation>
    </message>
    <message id="MainWindow.kFullScreen">
        <source>Picture Full Screen</source>
        <translation>Bild im Vollbild</translation>
    </message>
    <message id="MainWindow.kImageInfo">
        <source>&lt;width&gt; x &lt;height&gt; (&lt;megapixel&gt;, Ratio: &lt;ratio&gt;)</source>
        <translation>&lt;width&gt; x &lt;height&gt; (&lt;megapixel&gt;, Verhältnis: &lt;ratio&gt;)</translation>
    </message>
    <message id="MainWindow.kNewFromClipboard">
        <source>New Image from Clipboard</source>
        <translation>Neues Bild aus der Zwischenablage</translation>
    </message>
    <message id="MainWindow.kNotSaved">
        <source>The picture "&lt;filename&gt;" was not saved.</source>
        <translation>Das Bild „&lt;filename&gt;“ wurde nicht gesichert.</translation>
    </message>
    <message id="MainWindow.kOpacity">
        <source>Opacity:</source>
        <translation>Deckkraft:</translation>
    </message>
    <message id="MainWindow.kOpenAnImage">
        <source>&lt;Open an Image&gt;</source>
        <translation>&lt;Öffnen Sie ein Bild&gt;</translation>
    </message>
    <message id="MainWindow.kOpenTitle">
        <source>Open a Photo</source>
        <translation>Foto öffnen</translation>
    </message>
    <message id="MainWindow.kOpeningImage">
        <source>Opening Image &lt;filename&gt;...</source>
        <translation>Bild &lt;filename&gt; wird geöffnet ...</translation>
    </message>
    <message id="MainWindow.kPicturesNotBack">
        <source>The pictures that lay over the photo could not be brought back. They are kept for the next start.</source>
        <translation>Die Bilder, die über dem Foto lagen, ließen sich nicht zurückholen. Sie bleiben für den nächsten Start aufgehoben.</translation>
    </message>
    <message id="MainWindow.kProgressGeneric">
        <source>Processing Image...</source>
        <translation>Bild wird berechnet ...</translation>
    </message>
    <message id="MainWindow.kSaveCopyTitle">
        <source>Save the Finished Picture</source>
        <translation>Fertiges Bild sichern</translation>
    </message>
    <message id="MainWindow.kSaveTitle">
        <source>Save the Photo</source>
        <translation>Foto sichern</translation>
    </message>
    <message id="MainWindow.kUndoBlending">
        <source>Blending</source>
        <translation>Überblenden</translation>
    </message>
    <message id="MainWindow.kUndoClearStyle">
        <source>Clear Style</source>
        <translation>Stil entfernen</translation>
    </message>
    <message id="MainWindow.kUndoCrop">
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message id="MainWindow.kUndoFlip">
        <source>Flip</source>
        <translation>Spiegeln</translation>
    </message>
    <message id="MainWindow.kUndoLastStyle">
        <source>Last Style</source>
        <translation>Letzter Stil</translation>
    </message>
    <message id="MainWindow.kUndoOrientation">
        <source>Change Orientation</source>
        <translation>Format wechseln</translation>
    </message>
    <message id="MainWindow.kUndoPaste">
        <source>Paste</source>
        <translation>Einsetzen</translation>
    </message>
    <message id="MainWindow.kUndoPasteStyle">
        <source>Paste Style</source>
        <translation>Stil einsetzen</translation>
    </message>
    <message id="MainWindow.kUndoRewind">
        <source>Rewind</source>
        <translation>Zurückspulen</translation>
    </message>
    <message id="MainWindow.kUndoRotate">
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message id="MainWindow.kUpdatingPreview">
        <source>Updating Preview...</source>
        <translation>Vorschau wird erneuert ...</translation>
    </message>
    <message id="ManyEdits.kChangedSince">
        <source>The document "&lt;filename&gt;" stays as it is: it was changed since.</source>
        <translation>Das Dokument „&lt;filename&gt;“ bleibt, wie es ist: Es wurde seither geändert.</translation>
    </message>
    <message id="ManyEdits.kPictureNotTaken">
        <source>A picture that lies over the photo "&lt;filename&gt;" could not be copied.</source>
        <translation>Ein Bild, das über dem Foto „&lt;filename&gt;“ liegt, ließ sich nicht kopieren.</translation>
    </message>
    <message id="ManyInfos.kNotFit">
        <source>The data of "&lt;filename&gt;" was not changed: not all of it can stand there.</source>
        <translation>Die Daten von „&lt;filename&gt;“ wurden nicht geändert: Nicht alles kann dort stehen.</translation>
    </message>
    <message id="ManyInfos.kNothingKept">
        <source>The data of "&lt;filename&gt;" cannot be changed: it is no photo, or it is locked.</source>
        <translation>Die Daten von „&lt;filename&gt;“ lassen sich nicht ändern: Es ist kein Foto, oder es ist gesperrt.</translation>
    </message>
    <message id="ManyInfos.kWriting">
        <source>Writing the data of the photos...</source>
        <translation>Die Daten der Fotos werden geschrieben …</translation>
    </message>
    <message id="Menus.EditMenu">
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message id="Menus.FileMenu">
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message id="Menus.HelpMenu">
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message id="Menus.KFileOpenRecent">
        <source>Open Recent</source>
        <translation>Zuletzt geöffnet</translation>
    </message>
    <message id="Menus.ViewMenu">
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message id="Menus.WindowMenu">
        <source>Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message id="Menus.kEditApplyStyle">
        <source>Apply 1-Click Style</source>
        <translation>1-Klick-Stil anwenden</translation>
    </message>
    <message id="Menus.kEditChangeOrientation">
        <source>Change Orientation</source>
        <translation>Zwischen Hoch- und Querformat wechseln</translation>
    </message>
    <message id="Menus.kEditClearStyle">
        <source>Clear Style</source>
        <translation>Stil entfernen</translation>
    </message>
    <message id="Menus.kEditCopy">
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message id="Menus.kEditCopyEdits">
        <source>Copy Edits</source>
        <translation>Bearbeitung kopieren</translation>
    </message>
    <message id="Menus.kEditCopyStyle">
        <source>Copy Style</source>
        <translation>Stil kopieren</translation>
    </message>
    <message id="Menus.kEditCrop">
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message id="Menus.kEditPaste">
        <source>&amp;Paste</source>
        <translation>&amp;Einsetzen</translation>
    </message>
    <message id="Menus.kEditPasteEdits">
        <source>Paste Edits...</source>
        <translation>Bearbeitung einsetzen …</translation>
    </message>
    <message id="Menus.kEditPasteEditsUndo">
        <source>Paste Edits</source>
        <translation>Bearbeitung einsetzen</translation>
    </message>
    <message id="Menus.kEditPasteStyle">
        <source>Paste Style</source>
        <translation>Stil einsetzen</translation>
    </message>
    <message id="Menus.kEditPreferences">
        <source>Preferences...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message id="Menus.kEditRedo">
        <source>Red&amp;o</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message id="Menus.kEditUndo">
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message id="Menus.kFileApplyLastStyle">
        <source>Use Style From Last PIcture</source>
        <translation>Stil des letzten Bildes verwenden</translation>
    </message>
    <message id="Menus.kFileClose">
        <source>&amp;Close Window</source>
        <translation>Fenster s&amp;chließen</translation>
    </message>
    <message id="Menus.kFileEditInfo">
        <source>Edit Info...</source>
        <translation>Angaben ändern …</translation>
    </message>
    <message id="Menus.kFileGetInfo">
        <source>Get &amp;Info...</source>
        <translation>&amp;Informationen …</translation>
    </message>
    <message id="Menus.kFileNewFromClipboard">
        <source>New From Clipboard</source>
        <translation>Neu aus der Zwischenablage</translation>
    </message>
    <message id="Menus.kFileOpen">
        <source>&amp;Open...</source>
        <translation>&amp;Öffnen...</translation>
    </message>
    <message id="Menus.kFileQuit">
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message id="Menus.kFileRestoreToOriginal">
        <source>&amp;Rewind To Original</source>
        <translation>Zum O&amp;riginal zurückspulen</translation>
    </message>
    <message id="Menus.kFileRestoreToOriginalBalloonHelp">
        <source>Takes back all changes and shows the photo as it was taken.</source>
        <translation>Nimmt alle Änderungen zurück und zeigt das Foto, wie es aufgenommen wurde.</translation>
    </message>
    <message id="Menus.kFileSave">
        <source>&amp;Save</source>
        <translation>&amp;Sichern</translation>
    </message>
    <message id="Menus.kFileSaveCopyAs">
        <source>Save As Copy...</source>
        <translation>Kopie sichern unter...</translation>
    </message>
    <message id="Menus.kHelpAbout">
        <source>About &lt;ApplicationName&gt;...</source>
        <translation>Über &lt;ApplicationName&gt;...</translation>
    </message>
    <message id="Menus.kHelpWebPage">
        <source>&lt;ApplicationName&gt; Web Page...</source>
        <translation>Webseite von &lt;ApplicationName&gt;...</translation>
    </message>
    <message id="Menus.kOpenRecentClearRecentMenu">
        <source>Clear Menu</source>
        <translation>Menü leeren</translation>
    </message>
    <message id="Menus.kRotateAndFlipFlipHorizontally">
        <source>Flip Horizontally</source>
        <translation>Waagrecht spiegeln</translation>
    </message>
    <message id="Menus.kRotateAndFlipFlipVertically">
        <source>Flip Vertically</source>
        <translation>Senkrecht spiegeln</translation>
    </message>
    <message id="Menus.kRotateAndFlipRotate180">
        <source>Rotate 180˙ Clockwise</source>
        <translation>Um 180° im Uhrzeigersinn drehen</translation>
    </message>
    <message id="Menus.kRotateAndFlipRotate270">
        <source>Rotate 270˙ Clockwise</source>
        <translation>Um 270° im Uhrzeigersinn drehen</translation>
    </message>
    <message id="Menus.kRotateAndFlipRotate90">
        <source>Rotate 90˙ Clockwise</source>
        <translation>Um 90° im Uhrzeigersinn drehen</translation>
    </message>
    <message id="Menus.kViewAdvancedOptions">
        <source>Advanced Options</source>
        <translation>Erweiterte Optionen</translation>
    </message>
    <message id="Menus.kViewBeforeAndAfter">
        <source>Before &amp;&amp; After</source>
        <translation>Vorher &amp;&amp; nachher</translation>
    </message>
    <message id="Menus.kViewBrowseMyPhotos">
        <source>Photo Browser</source>
        <translation>Fotoübersicht</translation>
    </message>
    <message id="Menus.kViewCustomizeToolbar">
        <source>Customize Toolbar</source>
        <translation>Symbolleiste anpassen</translation>
    </message>
    <message id="Menus.kViewFullScreenPicture">
        <source>Picture Full Screen</source>
        <translation>Bild im Vollbild</translation>
    </message>
    <message id="Menus.kViewHideToolBar">
        <source>Hide Toolbar</source>
        <translation>Symbolleiste ausblenden</translation>
    </message>
    <message id="Menus.kViewHideToolBarHidden">
        <source>Show Toolbar</source>
        <translation>Symbolleiste einblenden</translation>
    </message>
    <message id="Menus.kViewIconOnly">
        <source>Icon Only</source>
        <translation>Nur Symbol</translation>
    </message>
    <message id="Menus.kViewIconText">
        <source>Icon &amp;&amp; Text</source>
        <translation>Symbol &amp;&amp; Text</translation>
    </message>
    <message id="Menus.kViewReturnToEditor">
        <source>Photo Editor</source>
        <translation>Fotoeditor</translation>
    </message>
    <message id="Menus.kViewShowColors">
        <source>Show Colors</source>
        <translation>Farben einblenden</translation>
    </message>
    <message id="Menus.kViewTextOnly">
        <source>Text Only</source>
        <translation>Nur Text</translation>
    </message>
    <message id="Menus.kViewUseSmallSize">
        <source>Use Small Size</source>
        <translation>Kleine Größe verwenden</translation>
    </message>
    <message id="Menus.kWindowBringAllToFront">
        <source>Bring All To Front</source>
        <translation>Alle nach vorne bringen</translation>
    </message>
    <message id="Menus.kWindowMinimize">
        <source>Minimize</source>
        <translation>Verkleinern</translation>
    </message>
    <message id="Menus.kWindowZoom">
        <source>Zoom</source>
        <translation>Zoomen</translation>
    </message>
    <message id="MetaDataBrowser.kAddIptc">
        <source>Add IPTC Block</source>
        <translation>IPTC-Block hinzufügen</translation>
    </message>
    <message id="MetaDataBrowser.kAddTiff">
        <source>Add TIFF Block</source>
        <translation>TIFF-Block hinzufügen</translation>
    </message>
    <message id="MetaDataBrowser.kAspectRatio">
        <source>Aspect Ratio:</source>
        <translation>Seitenverhältnis:</translation>
    </message>
    <message id="MetaDataBrowser.kAt">
        <source> at </source>
        <translation> bei </translation>
    </message>
    <message id="MetaDataBrowser.kBit">
        <source>-Bit </source>
        <translation>-Bit </translation>
    </message>
    <message id="MetaDataBrowser.kBytes">
        <source> bytes)</source>
        <translation> Bytes)</translation>
    </message>
    <message id="MetaDataBrowser.kColors">
        <source>Colors:</source>
        <translation>Farben:</translation>
    </message>
    <message id="MetaDataBrowser.kComment">
        <source>Comment:</source>
        <translation>Kommentar:</translation>
    </message>
    <message id="MetaDataBrowser.kCommentSection">
        <source>JPEG Comment:</source>
        <translation>JPEG-Kommentar:</translation>
    </message>
    <message id="MetaDataBrowser.kContactLink">
        <source>Contact Link:</source>
        <translation>Kontakt-Adresse:</translation>
    </message>
    <message id="MetaDataBrowser.kCopyRow">
        <source>Copy Name and Value</source>
        <translation>Name und Wert kopieren</translation>
    </message>
    <message id="MetaDataBrowser.kCopyValue">
        <source>Copy Value</source>
        <translation>Wert kopieren</translation>
    </message>
    <message id="MetaDataBrowser.kCopyright">
        <source>Copyright:</source>
        <translation>Copyright:</translation>
    </message>
    <message id="MetaDataBrowser.kCreated">
        <source>Created:</source>
        <translation>Erstellt:</translation>
    </message>
    <message id="MetaDataBrowser.kCreatedBy">
        <source>Created By:</source>
        <translation>Erstellt von:</translation>
    </message>
    <message id="MetaDataBrowser.kDPI">
        <source> DPI</source>
        <translation> DPI</translation>
    </message>
    <message id="MetaDataBrowser.kDctSection">
        <source>DCT Profile:</source>
        <translation>DCT-Profil:</translation>
    </message>
    <message id="MetaDataBrowser.kDimensions">
        <source>Dimensions:</source>
        <translation>Abmessungen:</translation>
    </message>
    <message id="MetaDataBrowser.kEdit">
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message id="MetaDataBrowser.kEncoder">
        <source>Encoder:</source>
        <translation>Kodierer:</translation>
    </message>
    <message id="MetaDataBrowser.kFileComment">
        <source>Comment:</source>
        <translation>Kommentar:</translation>
    </message>
    <message id="MetaDataBrowser.kFileKind">
        <source>Kind:</source>
        <translation>Art:</translation>
    </message>
    <message id="MetaDataBrowser.kFileSection">
        <source>File Information</source>
        <translation>Datei</translation>
    </message>
    <message id="MetaDataBrowser.kFlags">
        <source>Flags:</source>
        <translation>Merkmale:</translation>
    </message>
    <message id="MetaDataBrowser.kFormat">
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
    <message id="MetaDataBrowser.kFromPacket">
        <source>Said by the XMP data of the file, not by this block.</source>
        <translation>Sagen die XMP-Daten der Datei, nicht dieser Block.</translation>
    </message>
    <message id="MetaDataBrowser.kFullName">
        <source>Full Name:</source>
        <translation>Voller Name:</translation>
    </message>
    <message id="MetaDataBrowser.kInteropSection">
        <source>Interoperability:</source>
        <translation>Interoperability:</translation>
    </message>
    <message id="MetaDataBrowser.kIptcTags">
        <source>IPTC Tags</source>
        <translation>IPTC-Felder</translation>
    </message>
    <message id="MetaDataBrowser.kKind">
        <source>Kind:</source>
        <translation>Art:</translation>
    </message>
    <message id="MetaDataBrowser.kList">
        <source>Data of the file</source>
        <translation>Daten der Datei</translation>
    </message>
    <message id="MetaDataBrowser.kMegapixel">
        <source> Megapixel</source>
        <translation> Megapixel</translation>
    </message>
    <message id="MetaDataBrowser.kMegapixels">
        <source> Megapixels</source>
        <translation> Megapixel</translation>
    </message>
    <message id="MetaDataBrowser.kModified">
        <source>Modified:</source>
        <translation>Geändert:</translation>
    </message>
    <message id="MetaDataBrowser.kName">
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message id="MetaDataBrowser.kNotTaken">
        <source>"&lt;text&gt;" cannot stand in "&lt;name&gt;".</source>
        <translation>„&lt;text&gt;“ kann nicht in „&lt;name&gt;“ stehen.</translation>
    </message>
    <message id="MetaDataBrowser.kOnDisk">
        <source> on disk (</source>
        <translation> auf der Festplatte (</translation>
    </message>
    <message id="MetaDataBrowser.kOriginal">
        <source>Original:</source>
        <translation>Original:</translation>
    </message>
    <message id="MetaDataBrowser.kPacketDiffers">
        <source>The XMP data of the file says: &lt;text&gt;</source>
        <translation>Die XMP-Daten der Datei sagen: &lt;text&gt;</translation>
    </message>
    <message id="MetaDataBrowser.kPhotoshopSection">
        <source>Photoshop® Data</source>
        <translation>Photoshop®-Daten</translation>
    </message>
    <message id="MetaDataBrowser.kPosition">
        <source>Position:</source>
        <translation>Position:</translation>
    </message>
    <message id="MetaDataBrowser.kPreview">
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message id="MetaDataBrowser.kProfile">
        <source>Profile:</source>
        <translation>Profil:</translation>
    </message>
    <message id="MetaDataBrowser.kProfileSection">
        <source>Color Profile:</source>
        <translation>Farbprofil:</translation>
    </message>
    <message id="MetaDataBrowser.kRemove">
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message id="MetaDataBrowser.kShowOnMap">
        <source>Show on Map</source>
        <translation>Auf der Karte zeigen</translation>
    </message>
    <message id="MetaDataBrowser.kSize">
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message id="MetaDataBrowser.kSoftware">
        <source>Software: </source>
        <translation>Programm: </translation>
    </message>
    <message id="MetaDataBrowser.kSummarySection">
        <source>Image Summary</source>
        <translation>Bild</translation>
    </message>
    <message id="MetaDataBrowser.kTiffTags">
        <source>TIFF Tags</source>
        <translation>TIFF-Felder</translation>
    </message>
    <message id="MetaDataBrowser.kTransformation">
        <source>ColorTransformationCode:</source>
        <translation>ColorTransformationCode:</translation>
    </message>
    <message id="MetaDataBrowser.kUnits">
        <source>Units:</source>
        <translation>Einheiten:</translation>
    </message>
    <message id="MetaDataBrowser.kVersion">
        <source>Version:</source>
        <translation>Version:</translation>
    </message>
    <message id="MetaDataBrowser.kWhere">
        <source>Where:</source>
        <translation>Ort:</translation>
    </message>
    <message id="MetaDataBrowser.kXdensity">
        <source>Xdensity:</source>
        <translation>Xdensity:</translation>
    </message>
    <message id="MetaDataBrowser.kXthumbnail">
        <source>Xthumbnail:</source>
        <translation>Xthumbnail:</translation>
    </message>
    <message id="MetaDataBrowser.kYdensity">
        <source>Ydensity:</source>
        <translation>Ydensity:</translation>
    </message>
    <message id="MetaDataBrowser.kYthumbnail">
        <source>Ythumbnail:</source>
        <translation>Ythumbnail:</translation>
    </message>
    <message id="PasteEditsSheet.kAlso">
        <source>Also paste:</source>
        <translation>Auch einsetzen:</translation>
    </message>
    <message id="PasteEditsSheet.kBeside">
        <source>Beside their photos</source>
        <translation>Neben ihre Fotos</translation>
    </message>
    <message id="PasteEditsSheet.kClipboard">
        <source>the clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message id="PasteEditsSheet.kCrop">
        <source>Crop</source>
        <translation>Zuschnitt</translation>
    </message>
    <message id="PasteEditsSheet.kFrom">
        <source>Edits of:</source>
        <translation>Bearbeitung von:</translation>
    </message>
    <message id="PasteEditsSheet.kInFolder">
        <source>In "&lt;name&gt;"</source>
        <translation>In „&lt;name&gt;“</translation>
    </message>
    <message id="PasteEditsSheet.kOnto">
        <source>Photos:</source>
        <translation>Fotos:</translation>
    </message>
    <message id="PasteEditsSheet.kPaste">
        <source>Paste</source>
        <translation>Einsetzen</translation>
    </message>
    <message id="PasteEditsSheet.kPlace">
        <source>New documents:</source>
        <translation>Neue Dokumente:</translation>
    </message>
    <message id="PasteEditsSheet.kTitle">
        <source>Paste Edits</source>
        <translation>Bearbeitung einsetzen</translation>
    </message>
    <message id="PasteEditsSheet.kTurns">
        <source>Turns</source>
        <translation>Drehung und Spiegelung</translation>
    </message>
    <message id="PictureExtensions.kBlendNameColor">
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message id="PictureExtensions.kBlendNameColorBurn">
        <source>Color Burn</source>
        <translation>Farbig nachbelichten</translation>
    </message>
    <message id="PictureExtensions.kBlendNameColorDodge">
        <source>Color Dodge</source>
        <translation>Farbig abwedeln</translation>
    </message>
    <message id="PictureExtensions.kBlendNameDarken">
        <source>Darken</source>
        <translation>Abdunkeln</translation>
    </message>
    <message id="PictureExtensions.kBlendNameDifference">
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message id="PictureExtensions.kBlendNameExclusion">
        <source>Exclusion</source>
        <translation>Ausschluss</translation>
    </message>
    <message id="PictureExtensions.kBlendNameHue">
        <source>Hue</source>
        <translation>Farbton</translation>
    </message>
    <message id="PictureExtensions.kBlendNameLighten">
        <source>Lighten</source>
        <translation>Aufhellen</translation>
    </message>
    <message id="PictureExtensions.kBlendNameLuminosity">
        <source>Luminosity</source>
        <translation>Helligkeit</translation>
    </message>
    <message id="PictureExtensions.kBlendNameMultiply">
        <source>Multiply</source>
        <translation>Multiplizieren</translation>
    </message>
    <message id="PictureExtensions.kBlendNameNormal">
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message id="PictureExtensions.kBlendNameOverlay">
        <source>Overlay</source>
        <translation>Ineinanderkopieren</translation>
    </message>
    <message id="PictureExtensions.kBlendNameSaturation">
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message id="PictureExtensions.kBlendNameScreen">
        <source>Screen</source>
        <translation>Negativ multiplizieren</translation>
    </message>
    <message id="PictureExtensions.kBlendNameSoftLight">
        <source>Soft Light</source>
        <translation>Weiches Licht</translation>
    </message>
    <message id="PictureExtensions.kBlendNamehardLight">
        <source>Hard Light</source>
        <translation>Hartes Licht</translation>
    </message>
    <message id="PreferencesWindow.kAppearance">
        <source>Appearance:</source>
        <translation>Erscheinungsbild:</translation>
    </message>
    <message id="PreferencesWindow.kCarryAll">
        <source>All that the photo tells</source>
        <translation>Alles, was das Foto sagt</translation>
    </message>
    <message id="PreferencesWindow.kCarryNone">
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message id="PreferencesWindow.kCarryWithoutPlace">
        <source>All but where it was taken</source>
        <translation>Alles außer dem Aufnahmeort</translation>
    </message>
    <message id="PreferencesWindow.kCheckForUpdate">
        <source>Check For Update:</source>
        <translation>Nach Updates suchen:</translation>
    </message>
    <message id="PreferencesWindow.kContactLink">
        <source>Contact Link:</source>
        <translation>Kontaktadresse:</translation>
    </message>
    <message id="PreferencesWindow.kCopiesCarry">
        <source>Copies Tell:</source>
        <translation>Kopien sagen:</translation>
    </message>
    <message id="PreferencesWindow.kCopyRight">
        <source>Copyright:</source>
        <translation>Copyright:</translation>
    </message>
    <message id="PreferencesWindow.kCopyRightHelp">
        <source>Puts © at the caret</source>
        <translation>Setzt © an die Einfügemarke</translation>
    </message>
    <message id="PreferencesWindow.kDark">
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message id="PreferencesWindow.kFollowDesktop">
        <source>As the desktop</source>
        <translation>Wie die Arbeitsumgebung</translation>
    </message>
    <message id="PreferencesWindow.kFullName">
        <source>Full Name:</source>
        <translation>Voller Name:</translation>
    </message>
    <message id="PreferencesWindow.kLight">
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message id="PreferencesWindow.kPreferredEmailClient">
        <source>e-mail application:</source>
        <translation>E-Mail-Programm:</translation>
    </message>
    <message id="PreferencesWindow.kUpdateCheckDaily">
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message id="PreferencesWindow.kUpdateCheckEveryLaunch">
        <source>Every Launch</source>
        <translation>Bei jedem Start</translation>
    </message>
    <message id="PreferencesWindow.kUpdateCheckMonthly">
        <source>Monthly</source>
        <translation>Monatlich</translation>
    </message>
    <message id="PreferencesWindow.kUpdateCheckNever">
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message id="PreferencesWindow.kUpdateCheckWeekly">
        <source>Weekly</source>
        <translation>Wöchentlich</translation>
    </message>
    <message id="PreferencesWindow.kWindowTitle">
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message id="SaveAsCopy.kCannotReplace">
        <source>The file "&lt;filename&gt;" cannot be replaced: it could not be moved to the trash.</source>
        <translation>Die Datei „&lt;filename&gt;“ kann nicht ersetzt werden: Sie ließ sich nicht in den Papierkorb legen.</translation>
    </message>
    <message id="SaveAsCopy.kInTrash">
        <source>The file "&lt;filename&gt;" could not be replaced. It is in the trash now, and could not be taken out again.</source>
        <translation>Die Datei „&lt;filename&gt;“ konnte nicht ersetzt werden. Sie liegt jetzt im Papierkorb und ließ sich nicht wieder herausnehmen.</translation>
    </message>
    <message id="SaveAsCopy.kNotPlaced">
        <source>The file "&lt;filename&gt;" cannot be replaced: the new one could not be put in its place.</source>
        <translation>Die Datei „&lt;filename&gt;“ kann nicht ersetzt werden: Die neue ließ sich nicht an ihre Stelle setzen.</translation>
    </message>
    <message id="SaveAsCopy.kSaving">
        <source>Saving "&lt;filename&gt;"...</source>
        <translation>„&lt;filename&gt;“ wird gesichert ...</translation>
    </message>
    <message id="SharedPictureEffects.kMegaPixel">
        <source>Megapixel</source>
        <translation>Megapixel</translation>
    </message>
    <message id="SharedPictureEffects.kOr">
        <source>or</source>
        <translation>oder</translation>
    </message>
    <message id="ShowColorsMenuItem.kHideColors">
        <source>Hide Colors</source>
        <translation>Farben ausblenden</translation>
    </message>
    <message id="ShowColorsMenuItem.kShowColors">
        <source>Show Colors</source>
        <translation>Farben einblenden</translation>
    </message>
    <message id="Sidecar.kDamaged">
        <source>The file "&lt;filename&gt;" was not changed: what it holds is no metadata that can be read.</source>
        <translation>Die Datei „&lt;filename&gt;“ wurde nicht geändert: Was in ihr steht, lässt sich nicht lesen.</translation>
    </message>
    <message id="Sidecar.kFailed">
        <source>The file "&lt;filename&gt;" could not be written: &lt;reason&gt;.</source>
        <translation>Die Datei „&lt;filename&gt;“ konnte nicht geschrieben werden: &lt;reason&gt;.</translation>
    </message>
    <message id="SingleInstance.kDoesNotAnswer">
        <source>Brivolant Photos is running already and does not answer (process &lt;process&gt;).</source>
        <translation>Brivolant Photos läuft bereits und antwortet nicht (Prozess &lt;process&gt;).</translation>
    </message>
    <message id="TagCatalog.1976 CIE L*a*b*">
        <source>1976 CIE L*a*b*</source>
        <translation>CIE L*a*b* 1976</translation>
    </message>
    <message id="TagCatalog.35mm Focal Length">
        <source>35mm Focal Length</source>
        <translation>Kleinbildbrennweite</translation>
    </message>
    <message id="TagCatalog.90 deg CCW">
        <source>90 deg CCW</source>
        <translation>90° gegen den Uhrzeigersinn</translation>
    </message>
    <message id="TagCatalog.90 deg CCW Mirrored">
        <source>90 deg CCW Mirrored</source>
        <translation>90° gegen den Uhrzeigersinn, gespiegelt</translation>
    </message>
    <message id="TagCatalog.90 deg CW">
        <source>90 deg CW</source>
        <translation>90° im Uhrzeigersinn</translation>
    </message>
    <message id="TagCatalog.90 deg CW Mirrored">
        <source>90 deg CW Mirrored</source>
        <translation>90° im Uhrzeigersinn, gespiegelt</translation>
    </message>
    <message id="TagCatalog.A randomized process">
        <source>A randomized process</source>
        <translation>Zufallsverfahren</translation>
    </message>
    <message id="TagCatalog.A single page of a multi-page image">
        <source>A single page of a multi-page image</source>
        <translation>Einzelne Seite eines mehrseitigen Bildes</translation>
    </message>
    <message id="TagCatalog.AToB0">
        <source>AToB0</source>
        <translation>AToB0</translation>
    </message>
    <message id="TagCatalog.AToB1">
        <source>AToB1</source>
        <translation>AToB1</translation>
    </message>
    <message id="TagCatalog.AToB2">
        <source>AToB2</source>
        <translation>AToB2</translation>
    </message>
    <message id="TagCatalog.Action Advised">
        <source>Action Advised</source>
        <translation>Empfohlene Maßnahme</translation>
    </message>
    <message id="TagCatalog.Action program (biased toward fast shutter speed)">
        <source>Action program (biased toward fast shutter speed)</source>
        <translation>Actionprogramm (bevorzugt kurze Verschlusszeiten)</translation>
    </message>
    <message id="TagCatalog.ActiveArea">
        <source>ActiveArea</source>
        <translation>Aktiver Bereich</translation>
    </message>
    <message id="TagCatalog.Alpha Channel Names">
        <source>Alpha Channel Names</source>
        <translation>Alphakanalnamen</translation>
    </message>
    <message id="TagCatalog.Alpha Identifiers">
        <source>Alpha Identifiers</source>
        <translation>Alphakanalkennungen</translation>
    </message>
    <message id="TagCatalog.Altitude">
        <source>Altitude</source>
        <translation>Höhe</translation>
    </message>
    <message id="TagCatalog.Altitude Reference">
        <source>Altitude Reference</source>
        <translation>Bezug der Höhe</translation>
    </message>
    <message id="TagCatalog.An Ordered dither or halftone">
        <source>An Ordered dither or halftone</source>
        <translation>Geordnetes Dithering oder Rasterung</translation>
    </message>
    <message id="TagCatalog.AnalogBalance">
        <source>AnalogBalance</source>
        <translation>Analogabgleich</translation>
    </message>
    <message id="TagCatalog.AntiAliasStrength">
        <source>AntiAliasStrength</source>
        <translation>Stärke des Tiefpassfilters</translation>
    </message>
    <message id="TagCatalog.Aperture">
        <source>Aperture</source>
        <translation>Blendenwert</translation>
    </message>
    <message id="TagCatalog.Aperture priority">
        <source>Aperture priority</source>
        <translation>Blendenvorwahl (Zeitautomatik)</translation>
    </message>
    <message id="TagCatalog.Artist">
        <source>Artist</source>
        <translation>Künstler</translation>
    </message>
    <message id="TagCatalog.AsShotICCProfile">
        <source>AsShotICCProfile</source>
        <translation>ICC-Profil der Aufnahme</translation>
    </message>
    <message id="TagCatalog.AsShotNeutral">
        <source>AsShotNeutral</source>
        <translation>Neutralpunkt der Aufnahme</translation>
    </message>
    <message id="TagCatalog.AsShotPreProfileMatrix">
        <source>AsShotPreProfileMatrix</source>
        <translation>Vorprofilmatrix der Aufnahme</translation>
    </message>
    <message id="TagCatalog.AsShotWhiteXY">
        <source>AsShotWhiteXY</source>
        <translation>Weißpunkt der Aufnahme (xy)</translation>
    </message>
    <message id="TagCatalog.Associated alpha data (with pre-multiplied color)">
        <source>Associated alpha data (with pre-multiplied color)</source>
        <translation>Zugeordnete Alphadaten (mit vormultiplizierter Farbe)</translation>
    </message>
    <message id="TagCatalog.Audio Duration">
        <source>Audio Duration</source>
        <translation>Audiodauer</translation>
    </message>
    <message id="TagCatalog.Audio Outcue">
        <source>Audio Outcue</source>
        <translation>Audio-Schlussworte</translation>
    </message>
    <message id="TagCatalog.Audio Sampling Rate">
        <source>Audio Sampling Rate</source>
        <translation>Audio-Abtastrate</translation>
    </message>
    <message id="TagCatalog.Audio Sampling Resolution">
        <source>Audio Sampling Resolution</source>
        <translation>Audio-Abtasttiefe</translation>
    </message>
    <message id="TagCatalog.Auto Exposure">
        <source>Auto Exposure</source>
        <translation>Belichtungsautomatik</translation>
    </message>
    <message id="TagCatalog.Auto bracket">
        <source>Auto bracket</source>
        <translation>Automatische Belichtungsreihe</translation>
    </message>
    <message id="TagCatalog.Auto white balance">
        <source>Auto white balance</source>
        <translation>Automatischer Weißabgleich</translation>
    </message>
    <message id="TagCatalog.Average">
        <source>Average</source>
        <translation>Mittelwert</translation>
    </message>
    <message id="TagCatalog.BToA0">
        <source>BToA0</source>
        <translation>BToA0</translation>
    </message>
    <message id="TagCatalog.BToA1">
        <source>BToA1</source>
        <translation>BToA1</translation>
    </message>
    <message id="TagCatalog.BToA2">
        <source>BToA2</source>
        <translation>BToA2</translation>
    </message>
    <message id="TagCatalog.Background Color">
        <source>Background Color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message id="TagCatalog.Background Color Indicator">
        <source>Background Color Indicator</source>
        <translation>Kennzeichen der Hintergrundfarbe</translation>
    </message>
    <message id="TagCatalog.Background Color Value">
        <source>Background Color Value</source>
        <translation>Wert der Hintergrundfarbe</translation>
    </message>
    <message id="TagCatalog.Baseline sequential process">
        <source>Baseline sequential process</source>
        <translation>Sequenzielles Baseline-Verfahren</translation>
    </message>
    <message id="TagCatalog.BaselineExposure">
        <source>BaselineExposure</source>
        <translation>Grundbelichtung</translation>
    </message>
    <message id="TagCatalog.BaselineNoise">
        <source>BaselineNoise</source>
        <translation>Grundrauschen</translation>
    </message>
    <message id="TagCatalog.BaselineSharpness">
        <source>BaselineSharpness</source>
        <translation>Grundschärfe</translation>
    </message>
    <message id="TagCatalog.Battery Level">
        <source>Battery Level</source>
        <translation>Batterieladestand</translation>
    </message>
    <message id="TagCatalog.BayerGreenSplit">
        <source>BayerGreenSplit</source>
        <translation>Bayer-Grünabweichung</translation>
    </message>
    <message id="TagCatalog.Bearing of destination">
        <source>Bearing of destination</source>
        <translation>Peilung zum Ziel</translation>
    </message>
    <message id="TagCatalog.BestQualityScale">
        <source>BestQualityScale</source>
        <translation>Skalierung für beste Qualität</translation>
    </message>
    <message id="TagCatalog.Bits Per Extended Run Length">
        <source>Bits Per Extended Run Length</source>
        <translation>Bits pro erweiterter Lauflänge</translation>
    </message>
    <message id="TagCatalog.Bits Per Run length">
        <source>Bits Per Run length</source>
        <translation>Bits pro Lauflänge</translation>
    </message>
    <message id="TagCatalog.Bits Per Sample">
        <source>Bits Per Sample</source>
        <translation>Bits pro Kanal</translation>
    </message>
    <message id="TagCatalog.Black and white values">
        <source>Black and white values</source>
        <translation>Schwarz- und Weißwerte</translation>
    </message>
    <message id="TagCatalog.Black is Zero">
        <source>Black is Zero</source>
        <translation>Schwarz ist null</translation>
    </message>
    <message id="TagCatalog.BlackLevelDeltaH">
        <source>BlackLevelDeltaH</source>
        <translation>Horizontale Schwarzpegeldifferenz</translation>
    </message>
    <message id="TagCatalog.BlackLevelDeltaV">
        <source>BlackLevelDeltaV</source>
        <translation>Vertikale Schwarzpegeldifferenz</translation>
    </message>
    <message id="TagCatalog.BlackLevelRepeatCols">
        <source>BlackLevelRepeatCols</source>
        <translation>BlackLevelRepeatCols</translation>
    </message>
    <message id="TagCatalog.BlackLevelRepeatDim">
        <source>BlackLevelRepeatDim</source>
        <translation>Wiederholungsmaße des Schwarzpegels</translation>
    </message>
    <message id="TagCatalog.Border information">
        <source>Border information</source>
        <translation>Randinformationen</translation>
    </message>
    <message id="TagCatalog.Brightness">
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message id="TagCatalog.Byline">
        <source>Byline</source>
        <translation>Urheber</translation>
    </message>
    <message id="TagCatalog.Byline Title">
        <source>Byline Title</source>
        <translation>Berufsbezeichnung des Urhebers</translation>
    </message>
    <message id="TagCatalog.CCITT Group 3 1-Dimensional Modified Huffman run length encoding.">
        <source>CCITT Group 3 1-Dimensional Modified Huffman run length encoding.</source>
        <translation>CCITT Gruppe 3, eindimensionale modifizierte Huffman-Lauflängenkodierung</translation>
    </message>
    <message id="TagCatalog.CFA (Color Filter Array).">
        <source>CFA (Color Filter Array).</source>
        <translation>CFA (Farbfiltermatrix)</translation>
    </message>
    <message id="TagCatalog.CFA Pattern">
        <source>CFA Pattern</source>
        <translation>CFA-Muster</translation>
    </message>
    <message id="TagCatalog.CFA Repeat Pattern Dim">
        <source>CFA Repeat Pattern Dim</source>
        <translation>Maße des CFA-Musters</translation>
    </message>
    <message id="TagCatalog.CFALayout">
        <source>CFALayout</source>
        <translation>CFA-Anordnung</translation>
    </message>
    <message id="TagCatalog.CFAPlaneColor">
        <source>CFAPlaneColor</source>
        <translation>CFA-Ebenenfarben</translation>
    </message>
    <message id="TagCatalog.CMYK">
        <source>CMYK</source>
        <translation>CMYK</translation>
    </message>
    <message id="TagCatalog.CMYK Equivalent">
        <source>CMYK Equivalent</source>
        <translation>CMYK-Entsprechung</translation>
    </message>
    <message id="TagCatalog.CalibrationIlluminant1">
        <source>CalibrationIlluminant1</source>
        <translation>Kalibrierungslichtart 1</translation>
    </message>
    <message id="TagCatalog.CalibrationIlluminant2">
        <source>CalibrationIlluminant2</source>
        <translation>Kalibrierungslichtart 2</translation>
    </message>
    <message id="TagCatalog.CameraCalibration1">
        <source>CameraCalibration1</source>
        <translation>Kamerakalibrierung 1</translation>
    </message>
    <message id="TagCatalog.CameraCalibration2">
        <source>CameraCalibration2</source>
        <translation>Kamerakalibrierung 2</translation>
    </message>
    <message id="TagCatalog.CameraSerialNumber">
        <source>CameraSerialNumber</source>
        <translation>Seriennummer der Kamera</translation>
    </message>
    <message id="TagCatalog.Caption">
        <source>Caption</source>
        <translation>Bildunterschrift</translation>
    </message>
    <message id="TagCatalog.Caption Writer">
        <source>Caption Writer</source>
        <translation>Verfasser der Beschreibung</translation>
    </message>
    <message id="TagCatalog.Category">
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message id="TagCatalog.Cell Length">
        <source>Cell Length</source>
        <translation>Zellenhöhe</translation>
    </message>
    <message id="TagCatalog.Cell Width">
        <source>Cell Width</source>
        <translation>Zellenbreite</translation>
    </message>
    <message id="TagCatalog.Center Weighted Average">
        <source>Center Weighted Average</source>
        <translation>Mittenbetont</translation>
    </message>
    <message id="TagCatalog.Centimeter">
        <source>Centimeter</source>
        <translation>Zentimeter</translation>
    </message>
    <message id="TagCatalog.ChromaBlurRadius">
        <source>ChromaBlurRadius</source>
        <translation>Radius der Farbweichzeichnung</translation>
    </message>
    <message id="TagCatalog.City">
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message id="TagCatalog.Classify State">
        <source>Classify State</source>
        <translation>Klassifizierungsstatus</translation>
    </message>
    <message id="TagCatalog.Close View">
        <source>Close View</source>
        <translation>Nahbereich</translation>
    </message>
    <message id="TagCatalog.Cloudy Weather">
        <source>Cloudy Weather</source>
        <translation>Bewölkt</translation>
    </message>
    <message id="TagCatalog.Color Characterization">
        <source>Color Characterization</source>
        <translation>Farbcharakterisierung</translation>
    </message>
    <message id="TagCatalog.Color Map">
        <source>Color Map</source>
        <translation>Farbpalette</translation>
    </message>
    <message id="TagCatalog.Color Sequence">
        <source>Color Sequence</source>
        <translation>Farbreihenfolge</translation>
    </message>
    <message id="TagCatalog.Color Space">
        <source>Color Space</source>
        <translation>Farbraum</translation>
    </message>
    <message id="TagCatalog.Color Table">
        <source>Color Table</source>
        <translation>Farbtabelle</translation>
    </message>
    <message id="TagCatalog.Color halftoning information">
        <source>Color halftoning information</source>
        <translation>Rasterung für Farbe</translation>
    </message>
    <message id="TagCatalog.Color samplers resource">
        <source>Color samplers resource</source>
        <translation>Farbaufnahmepunkte</translation>
    </message>
    <message id="TagCatalog.Color sequential area sensor">
        <source>Color sequential area sensor</source>
        <translation>Farbsequenzieller Flächensensor</translation>
    </message>
    <message id="TagCatalog.Color sequential linear sensor">
        <source>Color sequential linear sensor</source>
        <translation>Farbsequenzieller Zeilensensor</translation>
    </message>
    <message id="TagCatalog.Color transfer functions">
        <source>Color transfer functions</source>
        <translation>Übertragungsfunktionen für Farbe</translation>
    </message>
    <message id="TagCatalog.ColorMatrix1">
        <source>ColorMatrix1</source>
        <translation>Farbmatrix 1</translation>
    </message>
    <message id="TagCatalog.ColorMatrix2">
        <source>ColorMatrix2</source>
        <translation>Farbmatrix 2</translation>
    </message>
    <message id="TagCatalog.Components Confirguration">
        <source>Components Confirguration</source>
        <translation>Komponentenkonfiguration</translation>
    </message>
    <message id="TagCatalog.Compressed Bits Per Pixel">
        <source>Compressed Bits Per Pixel</source>
        <translation>Komprimierte Bits pro Pixel</translation>
    </message>
    <message id="TagCatalog.Compression">
        <source>Compression</source>
        <translation>Komprimierung</translation>
    </message>
    <message id="TagCatalog.Contact">
        <source>Contact</source>
        <translation>Kontakt</translation>
    </message>
    <message id="TagCatalog.Content Location Code">
        <source>Content Location Code</source>
        <translation>Ortscode des Inhalts</translation>
    </message>
    <message id="TagCatalog.Content Location Name">
        <source>Content Location Name</source>
        <translation>Ortsname des Inhalts</translation>
    </message>
    <message id="TagCatalog.Content Preview">
        <source>Content Preview</source>
        <translation>Inhaltsvorschau</translation>
    </message>
    <message id="TagCatalog.Contrast">
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message id="TagCatalog.Cool white fluorescent (W 3900 - 4500K)">
        <source>Cool white fluorescent (W 3900 - 4500K)</source>
        <translation>Kaltweiße Leuchtstofflampe (W 3900–4500 K)</translation>
    </message>
    <message id="TagCatalog.Copyright">
        <source>Copyright</source>
        <translation>Copyright</translation>
    </message>
    <message id="TagCatalog.Copyright String">
        <source>Copyright String</source>
        <translation>Copyright-Vermerk</translation>
    </message>
    <message id="TagCatalog.Country Code">
        <source>Country Code</source>
        <translation>Ländercode</translation>
    </message>
    <message id="TagCatalog.Country Name">
        <source>Country Name</source>
        <translation>Land</translation>
    </message>
    <message id="TagCatalog.Created Date">
        <source>Created Date</source>
        <translation>Erstellungsdatum</translation>
    </message>
    <message id="TagCatalog.Created Time">
        <source>Created Time</source>
        <translation>Erstellungszeit</translation>
    </message>
    <message id="TagCatalog.Creative program (biased toward depth of field)">
        <source>Creative program (biased toward depth of field)</source>
        <translation>Kreativprogramm (bevorzugt Schärfentiefe)</translation>
    </message>
    <message id="TagCatalog.Creator">
        <source>Creator</source>
        <translation>Urheber</translation>
    </message>
    <message id="TagCatalog.Credit">
        <source>Credit</source>
        <translation>Bildnachweis</translation>
    </message>
    <message id="TagCatalog.CurrentICCProfile">
        <source>CurrentICCProfile</source>
        <translation>Aktuelles ICC-Profil</translation>
    </message>
    <message id="TagCatalog.CurrentPreProfileMatrix">
        <source>CurrentPreProfileMatrix</source>
        <translation>Aktuelle Vorprofilmatrix</translation>
    </message>
    <message id="TagCatalog.Custom process">
        <source>Custom process</source>
        <translation>Benutzerdefinierte Verarbeitung</translation>
    </message>
    <message id="TagCatalog.D50">
        <source>D50</source>
        <translation>D50</translation>
    </message>
    <message id="TagCatalog.D55">
        <source>D55</source>
        <translation>D55</translation>
    </message>
    <message id="TagCatalog.D65">
        <source>D65</source>
        <translation>D65</translation>
    </message>
    <message id="TagCatalog.D75">
        <source>D75</source>
        <translation>D75</translation>
    </message>
    <message id="TagCatalog.DCS Hue Shift Values">
        <source>DCS Hue Shift Values</source>
        <translation>DCS-Farbtonverschiebung</translation>
    </message>
    <message id="TagCatalog.DNGBackwardVersion">
        <source>DNGBackwardVersion</source>
        <translation>DNG-Kompatibilitätsversion</translation>
    </message>
    <message id="TagCatalog.DNGPrivateData">
        <source>DNGPrivateData</source>
        <translation>Private DNG-Daten</translation>
    </message>
    <message id="TagCatalog.DNGVersion">
        <source>DNGVersion</source>
        <translation>DNG-Version</translation>
    </message>
    <message id="TagCatalog.Data Type">
        <source>Data Type</source>
        <translation>Datentyp</translation>
    </message>
    <message id="TagCatalog.Date &amp; Time">
        <source>Date &amp; Time</source>
        <translation>Datum &amp; Uhrzeit</translation>
    </message>
    <message id="TagCatalog.Day white fluorescent (N 4600 - 5400K)">
        <source>Day white fluorescent (N 4600 - 5400K)</source>
        <translation>Tagesweiße Leuchtstofflampe (N 4600–5400 K)</translation>
    </message>
    <message id="TagCatalog.Daylight">
        <source>Daylight</source>
        <translation>Tageslicht</translation>
    </message>
    <message id="TagCatalog.Daylight Fluorescent (D 5700 - 7100K)">
        <source>Daylight Fluorescent (D 5700 - 7100K)</source>
        <translation>Tageslicht-Leuchtstofflampe (D 5700–7100 K)</translation>
    </message>
    <message id="TagCatalog.DefaultCropOrigin">
        <source>DefaultCropOrigin</source>
        <translation>Ursprung des Standardzuschnitts</translation>
    </message>
    <message id="TagCatalog.DefaultCropSize">
        <source>DefaultCropSize</source>
        <translation>Größe des Standardzuschnitts</translation>
    </message>
    <message id="TagCatalog.DefaultScale">
        <source>DefaultScale</source>
        <translation>Standardskalierung</translation>
    </message>
    <message id="TagCatalog.Description">
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message id="TagCatalog.Device Make">
        <source>Device Make</source>
        <translation>Gerätehersteller</translation>
    </message>
    <message id="TagCatalog.Device Model">
        <source>Device Model</source>
        <translation>Gerätemodell</translation>
    </message>
    <message id="TagCatalog.Device Setting Description">
        <source>Device Setting Description</source>
        <translation>Beschreibung der Geräteeinstellungen</translation>
    </message>
    <message id="TagCatalog.Digital Creation Date">
        <source>Digital Creation Date</source>
        <translation>Digitales Erstellungsdatum</translation>
    </message>
    <message id="TagCatalog.Digital Creation Time">
        <source>Digital Creation Time</source>
        <translation>Digitalisierungszeit</translation>
    </message>
    <message id="TagCatalog.Digital Zoom Ratio">
        <source>Digital Zoom Ratio</source>
        <translation>Digitalzoomfaktor</translation>
    </message>
    <message id="TagCatalog.Digitized Date">
        <source>Digitized Date</source>
        <translation>Digitalisierungsdatum</translation>
    </message>
    <message id="TagCatalog.Digitized Sub Seconds of Time">
        <source>Digitized Sub Seconds of Time</source>
        <translation>Sekundenbruchteile der Digitalisierung</translation>
    </message>
    <message id="TagCatalog.Digitized Time Zone">
        <source>Digitized Time Zone</source>
        <translation>Zeitzone der Digitalisierung</translation>
    </message>
    <message id="TagCatalog.Direction of Image">
        <source>Direction of Image</source>
        <translation>Aufnahmerichtung</translation>
    </message>
    <message id="TagCatalog.Direction of movement">
        <source>Direction of movement</source>
        <translation>Bewegungsrichtung</translation>
    </message>
    <message id="TagCatalog.Display Info">
        <source>Display Info</source>
        <translation>Anzeigeinformationen</translation>
    </message>
    <message id="TagCatalog.Distance to destination">
        <source>Distance to destination</source>
        <translation>Entfernung zum Ziel</translation>
    </message>
    <message id="TagCatalog.Distant View">
        <source>Distant View</source>
        <translation>Fernbereich</translation>
    </message>
    <message id="TagCatalog.Document History">
        <source>Document History</source>
        <translation>Dokumentverlauf</translation>
    </message>
    <message id="TagCatalog.Document Name">
        <source>Document Name</source>
        <translation>Dokumentname</translation>
    </message>
    <message id="TagCatalog.Document Notes">
        <source>Document Notes</source>
        <translation>Dokumentnotizen</translation>
    </message>
    <message id="TagCatalog.Document specific IDs, layer IDs">
        <source>Document specific IDs, layer IDs</source>
        <translation>Dokumentspezifische Kennungen, Ebenenkennungen</translation>
    </message>
    <message id="TagCatalog.Dot Range">
        <source>Dot Range</source>
        <translation>Rasterpunktbereich</translation>
    </message>
    <message id="TagCatalog.Duotone halftoning information">
        <source>Duotone halftoning information</source>
        <translation>Rasterung für Duplex</translation>
    </message>
    <message id="TagCatalog.Duotone image information">
        <source>Duotone image information</source>
        <translation>Duplexbild-Informationen</translation>
    </message>
    <message id="TagCatalog.Duotone transfer functions">
        <source>Duotone transfer functions</source>
        <translation>Übertragungsfunktionen für Duplex</translation>
    </message>
    <message id="TagCatalog.EPS options">
        <source>EPS options</source>
        <translation>EPS-Optionen</translation>
    </message>
    <message id="TagCatalog.EXIF Camera Info">
        <source>EXIF Camera Info</source>
        <translation>EXIF-Kameradaten</translation>
    </message>
    <message id="TagCatalog.East or West Longitude">
        <source>East or West Longitude</source>
        <translation>Östliche oder westliche Länge</translation>
    </message>
    <message id="TagCatalog.Edit Status">
        <source>Edit Status</source>
        <translation>Bearbeitungsstatus</translation>
    </message>
    <message id="TagCatalog.Editorial Update">
        <source>Editorial Update</source>
        <translation>Redaktionelle Aktualisierung</translation>
    </message>
    <message id="TagCatalog.Effects visible">
        <source>Effects visible</source>
        <translation>Sichtbarkeit der Effekte</translation>
    </message>
    <message id="TagCatalog.Exif IFD Pointer">
        <source>Exif IFD Pointer</source>
        <translation>Exif-IFD-Zeiger</translation>
    </message>
    <message id="TagCatalog.Exif Version">
        <source>Exif Version</source>
        <translation>Exif-Version</translation>
    </message>
    <message id="TagCatalog.Expiration Date">
        <source>Expiration Date</source>
        <translation>Ablaufdatum</translation>
    </message>
    <message id="TagCatalog.Expiration Time">
        <source>Expiration Time</source>
        <translation>Ablaufzeit</translation>
    </message>
    <message id="TagCatalog.Exposure Bias">
        <source>Exposure Bias</source>
        <translation>Belichtungskorrektur</translation>
    </message>
    <message id="TagCatalog.Exposure Index">
        <source>Exposure Index</source>
        <translation>Belichtungsindex</translation>
    </message>
    <message id="TagCatalog.Exposure Mode">
        <source>Exposure Mode</source>
        <translation>Belichtungsmodus</translation>
    </message>
    <message id="TagCatalog.Exposure Program">
        <source>Exposure Program</source>
        <translation>Belichtungsprogramm</translation>
    </message>
    <message id="TagCatalog.Exposure Time">
        <source>Exposure Time</source>
        <translation>Belichtungszeit</translation>
    </message>
    <message id="TagCatalog.Extra Samples">
        <source>Extra Samples</source>
        <translation>Zusätzliche Kanäle</translation>
    </message>
    <message id="TagCatalog.F Number">
        <source>F Number</source>
        <translation>Blende</translation>
    </message>
    <message id="TagCatalog.Fax Rec Params">
        <source>Fax Rec Params</source>
        <translation>Fax-Empfangsparameter</translation>
    </message>
    <message id="TagCatalog.Fax Recv Time">
        <source>Fax Recv Time</source>
        <translation>Fax-Empfangszeit</translation>
    </message>
    <message id="TagCatalog.Fax Sub Address">
        <source>Fax Sub Address</source>
        <translation>Fax-Unteradresse</translation>
    </message>
    <message id="TagCatalog.FedEx EDR">
        <source>FedEx EDR</source>
        <translation>FedEx EDR</translation>
    </message>
    <message id="TagCatalog.File Source">
        <source>File Source</source>
        <translation>Dateiquelle</translation>
    </message>
    <message id="TagCatalog.Fill Order">
        <source>Fill Order</source>
        <translation>Füllreihenfolge</translation>
    </message>
    <message id="TagCatalog.Fine Weather">
        <source>Fine Weather</source>
        <translation>Schönes Wetter</translation>
    </message>
    <message id="TagCatalog.Fixture Identifier">
        <source>Fixture Identifier</source>
        <translation>Rubrikkennung</translation>
    </message>
    <message id="TagCatalog.Flash">
        <source>Flash</source>
        <translation>Blitz</translation>
    </message>
    <message id="TagCatalog.Flash Energy">
        <source>Flash Energy</source>
        <translation>Blitzenergie</translation>
    </message>
    <message id="TagCatalog.Flashpix Version">
        <source>Flashpix Version</source>
        <translation>Flashpix-Version</translation>
    </message>
    <message id="TagCatalog.Fluorescent">
        <source>Fluorescent</source>
        <translation>Leuchtstofflampe</translation>
    </message>
    <message id="TagCatalog.Focal Length">
        <source>Focal Length</source>
        <translation>Brennweite</translation>
    </message>
    <message id="TagCatalog.Focal Plane Resolution Unit">
        <source>Focal Plane Resolution Unit</source>
        <translation>Auflösungseinheit der Brennebene</translation>
    </message>
    <message id="TagCatalog.Focal Plane X Resolution">
        <source>Focal Plane X Resolution</source>
        <translation>X-Auflösung der Brennebene</translation>
    </message>
    <message id="TagCatalog.Focal Plane Y Resolution">
        <source>Focal Plane Y Resolution</source>
        <translation>Y-Auflösung der Brennebene</translation>
    </message>
    <message id="TagCatalog.FovCot">
        <source>FovCot</source>
        <translation>FovCot</translation>
    </message>
    <message id="TagCatalog.Frame Count">
        <source>Frame Count</source>
        <translation>Anzahl der Einzelbilder</translation>
    </message>
    <message id="TagCatalog.Free Byte Counts">
        <source>Free Byte Counts</source>
        <translation>Freie Bytes</translation>
    </message>
    <message id="TagCatalog.Free Offsets">
        <source>Free Offsets</source>
        <translation>Freie Offsets</translation>
    </message>
    <message id="TagCatalog.Full-Resolution Image">
        <source>Full-Resolution Image</source>
        <translation>Bild in voller Auflösung</translation>
    </message>
    <message id="TagCatalog.GPS Date">
        <source>GPS Date</source>
        <translation>GPS-Datum</translation>
    </message>
    <message id="TagCatalog.GPS IFD Pointer">
        <source>GPS IFD Pointer</source>
        <translation>GPS-IFD-Zeiger</translation>
    </message>
    <message id="TagCatalog.GPS Tag Version">
        <source>GPS Tag Version</source>
        <translation>Version der GPS-Felder</translation>
    </message>
    <message id="TagCatalog.GPS differential correction">
        <source>GPS differential correction</source>
        <translation>GPS-Differenzialkorrektur</translation>
    </message>
    <message id="TagCatalog.GPS measurement mode">
        <source>GPS measurement mode</source>
        <translation>GPS-Messmodus</translation>
    </message>
    <message id="TagCatalog.GPS receiver status">
        <source>GPS receiver status</source>
        <translation>Status des GPS-Empfängers</translation>
    </message>
    <message id="TagCatalog.GPS satelites used for measurement">
        <source>GPS satelites used for measurement</source>
        <translation>Zur Messung genutzte GPS-Satelliten</translation>
    </message>
    <message id="TagCatalog.GPS time (atomic clock)">
        <source>GPS time (atomic clock)</source>
        <translation>GPS-Zeit (Atomuhr)</translation>
    </message>
    <message id="TagCatalog.Gain Control">
        <source>Gain Control</source>
        <translation>Verstärkungsregelung</translation>
    </message>
    <message id="TagCatalog.Geo ASCII Params Tag">
        <source>Geo ASCII Params Tag</source>
        <translation>Geo-Parameter (ASCII)</translation>
    </message>
    <message id="TagCatalog.Geo Double Params Tag">
        <source>Geo Double Params Tag</source>
        <translation>Geo-Parameter (Double)</translation>
    </message>
    <message id="TagCatalog.Geo Key Directory Tag">
        <source>Geo Key Directory Tag</source>
        <translation>GeoKey-Verzeichnis</translation>
    </message>
    <message id="TagCatalog.Geodetic survey data used">
        <source>Geodetic survey data used</source>
        <translation>Geodätisches Bezugssystem</translation>
    </message>
    <message id="TagCatalog.Global Altitude">
        <source>Global Altitude</source>
        <translation>Globale Höhe</translation>
    </message>
    <message id="TagCatalog.Global Angle">
        <source>Global Angle</source>
        <translation>Globaler Winkel</translation>
    </message>
    <message id="TagCatalog.Gray Response Curve">
        <source>Gray Response Curve</source>
        <translation>Grauwertkurve</translation>
    </message>
    <message id="TagCatalog.Gray Response Unit">
        <source>Gray Response Unit</source>
        <translation>Einheit der Grauwertkurve</translation>
    </message>
    <message id="TagCatalog.Grayscale and multichannel halftoning information">
        <source>Grayscale and multichannel halftoning information</source>
        <translation>Rasterung für Graustufen und Mehrkanal</translation>
    </message>
    <message id="TagCatalog.Grayscale and multichannel transfer function">
        <source>Grayscale and multichannel transfer function</source>
        <translation>Übertragungsfunktion für Graustufen und Mehrkanal</translation>
    </message>
    <message id="TagCatalog.Grid and guides information">
        <source>Grid and guides information</source>
        <translation>Raster und Hilfslinien</translation>
    </message>
    <message id="TagCatalog.HC Usage">
        <source>HC Usage</source>
        <translation>HC-Verwendung</translation>
    </message>
    <message id="TagCatalog.Halftone Hints">
        <source>Halftone Hints</source>
        <translation>Rasterungshinweise</translation>
    </message>
    <message id="TagCatalog.Hard">
        <source>Hard</source>
        <translation>Hart</translation>
    </message>
    <message id="TagCatalog.Headline">
        <source>Headline</source>
        <translation>Überschrift</translation>
    </message>
    <message id="TagCatalog.Height">
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message id="TagCatalog.High gain down">
        <source>High gain down</source>
        <translation>Hohe Abschwächung</translation>
    </message>
    <message id="TagCatalog.High gain up">
        <source>High gain up</source>
        <translation>Hohe Verstärkung</translation>
    </message>
    <message id="TagCatalog.High saturation">
        <source>High saturation</source>
        <translation>Hohe Sättigung</translation>
    </message>
    <message id="TagCatalog.High-order">
        <source>High-order</source>
        <translation>Höchstwertiges Bit zuerst</translation>
    </message>
    <message id="TagCatalog.Host Computer">
        <source>Host Computer</source>
        <translation>Hostcomputer</translation>
    </message>
    <message id="TagCatalog.ICC Profile">
        <source>ICC Profile</source>
        <translation>ICC-Profil</translation>
    </message>
    <message id="TagCatalog.ICC Untagged">
        <source>ICC Untagged</source>
        <translation>Ohne ICC-Profil</translation>
    </message>
    <message id="TagCatalog.IEEE floating point data (IEEE)">
        <source>IEEE floating point data (IEEE)</source>
        <translation>Gleitkommazahlen (IEEE)</translation>
    </message>
    <message id="TagCatalog.IPTC-NAA">
        <source>IPTC-NAA</source>
        <translation>IPTC-NAA</translation>
    </message>
    <message id="TagCatalog.IPTC/NAA">
        <source>IPTC/NAA</source>
        <translation>IPTC/NAA</translation>
    </message>
    <message id="TagCatalog.ISO Speed Ratings">
        <source>ISO Speed Ratings</source>
        <translation>ISO-Empfindlichkeit</translation>
    </message>
    <message id="TagCatalog.ISO studio tungsten">
        <source>ISO studio tungsten</source>
        <translation>ISO-Studiokunstlicht</translation>
    </message>
    <message id="TagCatalog.IT8 Header">
        <source>IT8 Header</source>
        <translation>IT8-Header</translation>
    </message>
    <message id="TagCatalog.Image Color Indicator">
        <source>Image Color Indicator</source>
        <translation>Kennzeichen der Bildfarbe</translation>
    </message>
    <message id="TagCatalog.Image Color Value">
        <source>Image Color Value</source>
        <translation>Wert der Bildfarbe</translation>
    </message>
    <message id="TagCatalog.Image Depth">
        <source>Image Depth</source>
        <translation>Bildtiefe</translation>
    </message>
    <message id="TagCatalog.Image File Format">
        <source>Image File Format</source>
        <translation>Bilddateiformat</translation>
    </message>
    <message id="TagCatalog.Image Full Length">
        <source>Image Full Length</source>
        <translation>Volle Bildhöhe</translation>
    </message>
    <message id="TagCatalog.Image Full Width">
        <source>Image Full Width</source>
        <translation>Volle Bildbreite</translation>
    </message>
    <message id="TagCatalog.Image Height">
        <source>Image Height</source>
        <translation>Bildhöhe</translation>
    </message>
    <message id="TagCatalog.Image History">
        <source>Image History</source>
        <translation>Bildverlauf</translation>
    </message>
    <message id="TagCatalog.Image ID">
        <source>Image ID</source>
        <translation>Bildkennung</translation>
    </message>
    <message id="TagCatalog.Image Length">
        <source>Image Length</source>
        <translation>Bildhöhe</translation>
    </message>
    <message id="TagCatalog.Image Number">
        <source>Image Number</source>
        <translation>Bildnummer</translation>
    </message>
    <message id="TagCatalog.Image Orientation">
        <source>Image Orientation</source>
        <translation>Bildausrichtung</translation>
    </message>
    <message id="TagCatalog.Image Source Data">
        <source>Image Source Data</source>
        <translation>Bildquelldaten</translation>
    </message>
    <message id="TagCatalog.Image Type">
        <source>Image Type</source>
        <translation>Bildtyp</translation>
    </message>
    <message id="TagCatalog.Image Unique ID">
        <source>Image Unique ID</source>
        <translation>Eindeutige Bildkennung</translation>
    </message>
    <message id="TagCatalog.Image Width">
        <source>Image Width</source>
        <translation>Bildbreite</translation>
    </message>
    <message id="TagCatalog.Image mode for raw format files">
        <source>Image mode for raw format files</source>
        <translation>Bildmodus für Raw-Dateien</translation>
    </message>
    <message id="TagCatalog.Inch">
        <source>Inch</source>
        <translation>Zoll</translation>
    </message>
    <message id="TagCatalog.Index">
        <source>Index</source>
        <translation>Index</translation>
    </message>
    <message id="TagCatalog.Indexed Color Table Count">
        <source>Indexed Color Table Count</source>
        <translation>Anzahl der indizierten Farben</translation>
    </message>
    <message id="TagCatalog.Indexed color table">
        <source>Indexed color table</source>
        <translation>Tabelle der indizierten Farben</translation>
    </message>
    <message id="TagCatalog.Ink Names">
        <source>Ink Names</source>
        <translation>Namen der Druckfarben</translation>
    </message>
    <message id="TagCatalog.Ink Set">
        <source>Ink Set</source>
        <translation>Druckfarbensatz</translation>
    </message>
    <message id="TagCatalog.Intergraph Matrix Tag">
        <source>Intergraph Matrix Tag</source>
        <translation>Intergraph-Matrix</translation>
    </message>
    <message id="TagCatalog.Interlace">
        <source>Interlace</source>
        <translation>Zeilensprung</translation>
    </message>
    <message id="TagCatalog.Interoperability Offset">
        <source>Interoperability Offset</source>
        <translation>Interoperabilitäts-Offset</translation>
    </message>
    <message id="TagCatalog.JBIG Options">
        <source>JBIG Options</source>
        <translation>JBIG-Optionen</translation>
    </message>
    <message id="TagCatalog.JPEG">
        <source>JPEG</source>
        <translation>JPEG</translation>
    </message>
    <message id="TagCatalog.JPEG AC Tables">
        <source>JPEG AC Tables</source>
        <translation>JPEG-AC-Tabellen</translation>
    </message>
    <message id="TagCatalog.JPEG DC Tables">
        <source>JPEG DC Tables</source>
        <translation>JPEG-DC-Tabellen</translation>
    </message>
    <message id="TagCatalog.JPEG Interchange Format">
        <source>JPEG Interchange Format</source>
        <translation>JPEG-Austauschformat</translation>
    </message>
    <message id="TagCatalog.JPEG Interchange Format Length">
        <source>JPEG Interchange Format Length</source>
        <translation>Länge des JPEG-Austauschformats</translation>
    </message>
    <message id="TagCatalog.JPEG Lossless Predictors">
        <source>JPEG Lossless Predictors</source>
        <translation>Verlustfreie JPEG-Prädiktoren</translation>
    </message>
    <message id="TagCatalog.JPEG Point Transforms">
        <source>JPEG Point Transforms</source>
        <translation>JPEG-Punkttransformationen</translation>
    </message>
    <message id="TagCatalog.JPEG Proc">
        <source>JPEG Proc</source>
        <translation>JPEG-Verfahren</translation>
    </message>
    <message id="TagCatalog.JPEG Q Tables">
        <source>JPEG Q Tables</source>
        <translation>JPEG-Q-Tabellen</translation>
    </message>
    <message id="TagCatalog.JPEG Restat Interval">
        <source>JPEG Restat Interval</source>
        <translation>JPEG-Restart-Intervall</translation>
    </message>
    <message id="TagCatalog.JPEG quality">
        <source>JPEG quality</source>
        <translation>JPEG-Qualität</translation>
    </message>
    <message id="TagCatalog.Job ID">
        <source>Job ID</source>
        <translation>Auftragskennung</translation>
    </message>
    <message id="TagCatalog.Jump To XPEP">
        <source>Jump To XPEP</source>
        <translation>Sprung zu XPEP</translation>
    </message>
    <message id="TagCatalog.Keywords">
        <source>Keywords</source>
        <translation>Schlagwörter</translation>
    </message>
    <message id="TagCatalog.LZW">
        <source>LZW</source>
        <translation>LZW</translation>
    </message>
    <message id="TagCatalog.Landscape">
        <source>Landscape</source>
        <translation>Landschaft</translation>
    </message>
    <message id="TagCatalog.Landscape mode (for landscape photos with the background in focus)">
        <source>Landscape mode (for landscape photos with the background in focus)</source>
        <translation>Landschaftsmodus (für Landschaften mit scharfem Hintergrund)</translation>
    </message>
    <message id="TagCatalog.Language Identifier">
        <source>Language Identifier</source>
        <translation>Sprachkennung</translation>
    </message>
    <message id="TagCatalog.Latitude">
        <source>Latitude</source>
        <translation>Geografische Breite</translation>
    </message>
    <message id="TagCatalog.Latitude of destination">
        <source>Latitude of destination</source>
        <translation>Breite des Ziels</translation>
    </message>
    <message id="TagCatalog.Layer state information">
        <source>Layer state information</source>
        <translation>Ebenenstatus</translation>
    </message>
    <message id="TagCatalog.Layers group information">
        <source>Layers group information</source>
        <translation>Ebenengruppen</translation>
    </message>
    <message id="TagCatalog.Light Source">
        <source>Light Source</source>
        <translation>Lichtquelle</translation>
    </message>
    <message id="TagCatalog.LinearRaw">
        <source>LinearRaw</source>
        <translation>LinearRaw</translation>
    </message>
    <message id="TagCatalog.LinearResponseLimit">
        <source>LinearResponseLimit</source>
        <translation>Grenze des linearen Bereichs</translation>
    </message>
    <message id="TagCatalog.LinerizationTable">
        <source>LinerizationTable</source>
        <translation>Linearisierungstabelle</translation>
    </message>
    <message id="TagCatalog.Local Caption">
        <source>Local Caption</source>
        <translation>Lokale Beschreibung</translation>
    </message>
    <message id="TagCatalog.LocalizedCameraModel">
        <source>LocalizedCameraModel</source>
        <translation>Lokalisiertes Kameramodell</translation>
    </message>
    <message id="TagCatalog.Longitude">
        <source>Longitude</source>
        <translation>Geografische Länge</translation>
    </message>
    <message id="TagCatalog.Longitude of destination">
        <source>Longitude of destination</source>
        <translation>Länge des Ziels</translation>
    </message>
    <message id="TagCatalog.Lossless process with Huffman coding">
        <source>Lossless process with Huffman coding</source>
        <translation>Verlustfreies Verfahren mit Huffman-Kodierung</translation>
    </message>
    <message id="TagCatalog.Low Resolution Version">
        <source>Low Resolution Version</source>
        <translation>Version mit niedriger Auflösung</translation>
    </message>
    <message id="TagCatalog.Low gain down">
        <source>Low gain down</source>
        <translation>Geringe Abschwächung</translation>
    </message>
    <message id="TagCatalog.Low gain up">
        <source>Low gain up</source>
        <translation>Geringe Verstärkung</translation>
    </message>
    <message id="TagCatalog.Low saturation">
        <source>Low saturation</source>
        <translation>Geringe Sättigung</translation>
    </message>
    <message id="TagCatalog.Low-order">
        <source>Low-order</source>
        <translation>Niederwertigstes Bit zuerst</translation>
    </message>
    <message id="TagCatalog.Macintosh print manager">
        <source>Macintosh print manager</source>
        <translation>Macintosh-Druckmanager</translation>
    </message>
    <message id="TagCatalog.Macro">
        <source>Macro</source>
        <translation>Makro</translation>
    </message>
    <message id="TagCatalog.Maker Note">
        <source>Maker Note</source>
        <translation>Herstellernotiz</translation>
    </message>
    <message id="TagCatalog.MakerNoteSafety">
        <source>MakerNoteSafety</source>
        <translation>Sicherheit der Herstellernotiz</translation>
    </message>
    <message id="TagCatalog.Manual">
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message id="TagCatalog.Manual Exposure">
        <source>Manual Exposure</source>
        <translation>Manuelle Belichtung</translation>
    </message>
    <message id="TagCatalog.Manual white balance">
        <source>Manual white balance</source>
        <translation>Manueller Weißabgleich</translation>
    </message>
    <message id="TagCatalog.MaskedAreas">
        <source>MaskedAreas</source>
        <translation>Maskierte Bereiche</translation>
    </message>
    <message id="TagCatalog.Master Document ID">
        <source>Master Document ID</source>
        <translation>Kennung des Hauptdokuments</translation>
    </message>
    <message id="TagCatalog.Matrix World To Camera">
        <source>Matrix World To Camera</source>
        <translation>Matrix Welt zu Kamera</translation>
    </message>
    <message id="TagCatalog.Matrix World To Screen">
        <source>Matrix World To Screen</source>
        <translation>Matrix Welt zu Bildschirm</translation>
    </message>
    <message id="TagCatalog.Matteing">
        <source>Matteing</source>
        <translation>Matteing</translation>
    </message>
    <message id="TagCatalog.Max Aperture">
        <source>Max Aperture</source>
        <translation>Größte Blendenöffnung</translation>
    </message>
    <message id="TagCatalog.Max Sample Value">
        <source>Max Sample Value</source>
        <translation>Größter Kanalwert</translation>
    </message>
    <message id="TagCatalog.Measurement precision">
        <source>Measurement precision</source>
        <translation>Messgenauigkeit</translation>
    </message>
    <message id="TagCatalog.Metering Mode">
        <source>Metering Mode</source>
        <translation>Belichtungsmessung</translation>
    </message>
    <message id="TagCatalog.Microsoft® Digital Image Pro Tags">
        <source>Microsoft® Digital Image Pro Tags</source>
        <translation>Felder von Microsoft Digital Image Pro</translation>
    </message>
    <message id="TagCatalog.Min Sample Value">
        <source>Min Sample Value</source>
        <translation>Kleinster Kanalwert</translation>
    </message>
    <message id="TagCatalog.Mirrored">
        <source>Mirrored</source>
        <translation>Gespiegelt</translation>
    </message>
    <message id="TagCatalog.Model Pixel Scale Tag">
        <source>Model Pixel Scale Tag</source>
        <translation>Pixelmaßstab des Modells</translation>
    </message>
    <message id="TagCatalog.Model Tiepoint Tag">
        <source>Model Tiepoint Tag</source>
        <translation>Passpunkte des Modells</translation>
    </message>
    <message id="TagCatalog.Model Transformation Tag">
        <source>Model Transformation Tag</source>
        <translation>Transformation des Modells</translation>
    </message>
    <message id="TagCatalog.Multi Spot">
        <source>Multi Spot</source>
        <translation>Multispot</translation>
    </message>
    <message id="TagCatalog.Name of GPS area">
        <source>Name of GPS area</source>
        <translation>Name des GPS-Gebiets</translation>
    </message>
    <message id="TagCatalog.Name of GPS processing method">
        <source>Name of GPS processing method</source>
        <translation>Name des GPS-Verfahrens</translation>
    </message>
    <message id="TagCatalog.Name of clipping path">
        <source>Name of clipping path</source>
        <translation>Name des Beschneidungspfads</translation>
    </message>
    <message id="TagCatalog.New Subfile Type">
        <source>New Subfile Type</source>
        <translation>Neuer Unterdateityp</translation>
    </message>
    <message id="TagCatalog.Night Scene">
        <source>Night Scene</source>
        <translation>Nachtaufnahme</translation>
    </message>
    <message id="TagCatalog.No absolute unit">
        <source>No absolute unit</source>
        <translation>Keine absolute Einheit</translation>
    </message>
    <message id="TagCatalog.No compression">
        <source>No compression</source>
        <translation>Keine Komprimierung</translation>
    </message>
    <message id="TagCatalog.No dithering">
        <source>No dithering</source>
        <translation>Kein Dithering</translation>
    </message>
    <message id="TagCatalog.Normal">
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message id="TagCatalog.Normal (0 deg)">
        <source>Normal (0 deg)</source>
        <translation>Normal (0°)</translation>
    </message>
    <message id="TagCatalog.Normal Process">
        <source>Normal Process</source>
        <translation>Normale Verarbeitung</translation>
    </message>
    <message id="TagCatalog.Normal Program">
        <source>Normal Program</source>
        <translation>Programmautomatik</translation>
    </message>
    <message id="TagCatalog.North or South Latitude">
        <source>North or South Latitude</source>
        <translation>Nördliche oder südliche Breite</translation>
    </message>
    <message id="TagCatalog.Not Defined">
        <source>Not Defined</source>
        <translation>Nicht definiert</translation>
    </message>
    <message id="TagCatalog.Number Of Inks">
        <source>Number Of Inks</source>
        <translation>Anzahl der Druckfarben</translation>
    </message>
    <message id="TagCatalog.Number represents hundred-thousandths of a unit">
        <source>Number represents hundred-thousandths of a unit</source>
        <translation>Angabe in Hunderttausendsteln einer Einheit</translation>
    </message>
    <message id="TagCatalog.Number represents hundreths of a unit">
        <source>Number represents hundreths of a unit</source>
        <translation>Angabe in Hundertsteln einer Einheit</translation>
    </message>
    <message id="TagCatalog.Number represents ten-thousandths of a unit">
        <source>Number represents ten-thousandths of a unit</source>
        <translation>Angabe in Zehntausendsteln einer Einheit</translation>
    </message>
    <message id="TagCatalog.Number represents tenths of a unit">
        <source>Number represents tenths of a unit</source>
        <translation>Angabe in Zehnteln einer Einheit</translation>
    </message>
    <message id="TagCatalog.Number represents thousandths of a unit">
        <source>Number represents thousandths of a unit</source>
        <translation>Angabe in Tausendsteln einer Einheit</translation>
    </message>
    <message id="TagCatalog.OECF">
        <source>OECF</source>
        <translation>OECF</translation>
    </message>
    <message id="TagCatalog.Obj Data Preview Data">
        <source>Obj Data Preview Data</source>
        <translation>Daten der Objektvorschau</translation>
    </message>
    <message id="TagCatalog.Obj Data Preview File Format">
        <source>Obj Data Preview File Format</source>
        <translation>Dateiformat der Objektvorschau</translation>
    </message>
    <message id="TagCatalog.Obj Data Preview File Format Ver">
        <source>Obj Data Preview File Format Ver</source>
        <translation>Dateiformatversion der Objektvorschau</translation>
    </message>
    <message id="TagCatalog.Object Attribute Reference">
        <source>Object Attribute Reference</source>
        <translation>Objektattribut-Referenz</translation>
    </message>
    <message id="TagCatalog.Object Cycle">
        <source>Object Cycle</source>
        <translation>Objektzyklus</translation>
    </message>
    <message id="TagCatalog.Object Name">
        <source>Object Name</source>
        <translation>Objektname</translation>
    </message>
    <message id="TagCatalog.Object TypeReference">
        <source>Object TypeReference</source>
        <translation>Objekttyp-Referenz</translation>
    </message>
    <message id="TagCatalog.Obsolete">
        <source>Obsolete</source>
        <translation>Veraltet</translation>
    </message>
    <message id="TagCatalog.One-chip color area sensor">
        <source>One-chip color area sensor</source>
        <translation>Ein-Chip-Farbflächensensor</translation>
    </message>
    <message id="TagCatalog.Orientation">
        <source>Orientation</source>
        <translation>Ausrichtung</translation>
    </message>
    <message id="TagCatalog.Original Date">
        <source>Original Date</source>
        <translation>Aufnahmedatum</translation>
    </message>
    <message id="TagCatalog.Original Sub Seconds of Time">
        <source>Original Sub Seconds of Time</source>
        <translation>Sekundenbruchteile der Aufnahme</translation>
    </message>
    <message id="TagCatalog.Original Time Zone">
        <source>Original Time Zone</source>
        <translation>Zeitzone der Aufnahme</translation>
    </message>
    <message id="TagCatalog.Original Transmission reference">
        <source>Original Transmission reference</source>
        <translation>Ursprüngliche Übertragungsreferenz</translation>
    </message>
    <message id="TagCatalog.OriginalRawFileData">
        <source>OriginalRawFileData</source>
        <translation>Daten der Original-Rohdatei</translation>
    </message>
    <message id="TagCatalog.OriginalRawFileName">
        <source>OriginalRawFileName</source>
        <translation>Name der Original-Rohdatei</translation>
    </message>
    <message id="TagCatalog.Originating Program">
        <source>Originating Program</source>
        <translation>Ursprungsprogramm</translation>
    </message>
    <message id="TagCatalog.Originating URL">
        <source>Originating URL</source>
        <translation>Ursprungs-URL</translation>
    </message>
    <message id="TagCatalog.Other">
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message id="TagCatalog.Owner ID">
        <source>Owner ID</source>
        <translation>Besitzerkennung</translation>
    </message>
    <message id="TagCatalog.PackBits compression, a simple byte-oriented run length scheme.">
        <source>PackBits compression, a simple byte-oriented run length scheme.</source>
        <translation>PackBits-Komprimierung, eine einfache byteweise Lauflängenkodierung</translation>
    </message>
    <message id="TagCatalog.Page Name">
        <source>Page Name</source>
        <translation>Seitenname</translation>
    </message>
    <message id="TagCatalog.Page Number">
        <source>Page Number</source>
        <translation>Seitennummer</translation>
    </message>
    <message id="TagCatalog.Partial">
        <source>Partial</source>
        <translation>Selektiv</translation>
    </message>
    <message id="TagCatalog.Pattern">
        <source>Pattern</source>
        <translation>Mehrfeld</translation>
    </message>
    <message id="TagCatalog.Photometric Interpretation">
        <source>Photometric Interpretation</source>
        <translation>Fotometrische Interpretation</translation>
    </message>
    <message id="TagCatalog.Photoshop Annotations">
        <source>Photoshop Annotations</source>
        <translation>Photoshop-Anmerkungen</translation>
    </message>
    <message id="TagCatalog.Photoshop Image Resources">
        <source>Photoshop Image Resources</source>
        <translation>Photoshop-Bildressourcen</translation>
    </message>
    <message id="TagCatalog.Picture Information">
        <source>Picture Information</source>
        <translation>Bildinformationen</translation>
    </message>
    <message id="TagCatalog.Pixel Intensity Range">
        <source>Pixel Intensity Range</source>
        <translation>Bereich der Pixelintensität</translation>
    </message>
    <message id="TagCatalog.Planar Configuration">
        <source>Planar Configuration</source>
        <translation>Planarkonfiguration</translation>
    </message>
    <message id="TagCatalog.Portrait">
        <source>Portrait</source>
        <translation>Porträt</translation>
    </message>
    <message id="TagCatalog.Portrait mode (for closeup photos with the background out of focus)">
        <source>Portrait mode (for closeup photos with the background out of focus)</source>
        <translation>Porträtmodus (für Nahaufnahmen mit unscharfem Hintergrund)</translation>
    </message>
    <message id="TagCatalog.Predictor">
        <source>Predictor</source>
        <translation>Prädiktor</translation>
    </message>
    <message id="TagCatalog.Primary Chromaticities">
        <source>Primary Chromaticities</source>
        <translation>Chromatizität der Primärfarben</translation>
    </message>
    <message id="TagCatalog.Print Flags">
        <source>Print Flags</source>
        <translation>Druckmerkmale</translation>
    </message>
    <message id="TagCatalog.Print IM Data">
        <source>Print IM Data</source>
        <translation>PrintIM-Daten</translation>
    </message>
    <message id="TagCatalog.Print flags information">
        <source>Print flags information</source>
        <translation>Informationen zu Druckmerkmalen</translation>
    </message>
    <message id="TagCatalog.Priority">
        <source>Priority</source>
        <translation>Dringlichkeit</translation>
    </message>
    <message id="TagCatalog.Program Version">
        <source>Program Version</source>
        <translation>Programmversion</translation>
    </message>
    <message id="TagCatalog.Province/State">
        <source>Province/State</source>
        <translation>Bundesland/Provinz</translation>
    </message>
    <message id="TagCatalog.Quick Mask">
        <source>Quick Mask</source>
        <translation>Maskierungsmodus</translation>
    </message>
    <message id="TagCatalog.RGB">
        <source>RGB</source>
        <translation>RGB</translation>
    </message>
    <message id="TagCatalog.RGB Palette Color">
        <source>RGB Palette Color</source>
        <translation>RGB-Farbpalette</translation>
    </message>
    <message id="TagCatalog.Raster Padding">
        <source>Raster Padding</source>
        <translation>Rasterauffüllung</translation>
    </message>
    <message id="TagCatalog.Rasterized Caption">
        <source>Rasterized Caption</source>
        <translation>Gerasterte Beschreibung</translation>
    </message>
    <message id="TagCatalog.Rating">
        <source>Rating</source>
        <translation>Bewertung</translation>
    </message>
    <message id="TagCatalog.RawDataUniqueID">
        <source>RawDataUniqueID</source>
        <translation>Eindeutige Rohdatenkennung</translation>
    </message>
    <message id="TagCatalog.Record Version">
        <source>Record Version</source>
        <translation>Datensatzversion</translation>
    </message>
    <message id="TagCatalog.Rectangular (or square) layout">
        <source>Rectangular (or square) layout</source>
        <translation>Rechteckige (oder quadratische) Anordnung</translation>
    </message>
    <message id="TagCatalog.Reduced-resolution Image">
        <source>Reduced-resolution Image</source>
        <translation>Bild in verringerter Auflösung</translation>
    </message>
    <message id="TagCatalog.ReductionMatrix1">
        <source>ReductionMatrix1</source>
        <translation>Reduktionsmatrix 1</translation>
    </message>
    <message id="TagCatalog.ReductionMatrix2">
        <source>ReductionMatrix2</source>
        <translation>Reduktionsmatrix 2</translation>
    </message>
    <message id="TagCatalog.Ref Pts">
        <source>Ref Pts</source>
        <translation>Referenzpunkte</translation>
    </message>
    <message id="TagCatalog.Reference Black White">
        <source>Reference Black White</source>
        <translation>Schwarz-Weiß-Referenz</translation>
    </message>
    <message id="TagCatalog.Reference Date">
        <source>Reference Date</source>
        <translation>Referenzdatum</translation>
    </message>
    <message id="TagCatalog.Reference Number">
        <source>Reference Number</source>
        <translation>Referenznummer</translation>
    </message>
    <message id="TagCatalog.Reference Service">
        <source>Reference Service</source>
        <translation>Referenzdienst</translation>
    </message>
    <message id="TagCatalog.Reference for bearing to destination">
        <source>Reference for bearing to destination</source>
        <translation>Bezug der Peilung zum Ziel</translation>
    </message>
    <message id="TagCatalog.Reference for direction of image">
        <source>Reference for direction of image</source>
        <translation>Bezug der Aufnahmerichtung</translation>
    </message>
    <message id="TagCatalog.Reference for direction of movement">
        <source>Reference for direction of movement</source>
        <translation>Bezug der Bewegungsrichtung</translation>
    </message>
    <message id="TagCatalog.Reference for distance to destination">
        <source>Reference for distance to destination</source>
        <translation>Einheit der Entfernung zum Ziel</translation>
    </message>
    <message id="TagCatalog.Reference for latitude of destination">
        <source>Reference for latitude of destination</source>
        <translation>Bezug der Breite des Ziels</translation>
    </message>
    <message id="TagCatalog.Reference for longitude of destination">
        <source>Reference for longitude of destination</source>
        <translation>Bezug der Länge des Ziels</translation>
    </message>
    <message id="TagCatalog.Region Affine">
        <source>Region Affine</source>
        <translation>Affine Transformation des Bereichs</translation>
    </message>
    <message id="TagCatalog.Region Track Point">
        <source>Region Track Point</source>
        <translation>Verfolgungspunkt des Bereichs</translation>
    </message>
    <message id="TagCatalog.Region Warp Corners">
        <source>Region Warp Corners</source>
        <translation>Verzerrungsecken des Bereichs</translation>
    </message>
    <message id="TagCatalog.Related Sound File">
        <source>Related Sound File</source>
        <translation>Zugehörige Audiodatei</translation>
    </message>
    <message id="TagCatalog.Release Date">
        <source>Release Date</source>
        <translation>Freigabedatum</translation>
    </message>
    <message id="TagCatalog.Release Time">
        <source>Release Time</source>
        <translation>Freigabezeit</translation>
    </message>
    <message id="TagCatalog.Rendered">
        <source>Rendered</source>
        <translation>Bildverarbeitung</translation>
    </message>
    <message id="TagCatalog.Reserved_TIFF_IT_1">
        <source>Reserved_TIFF_IT_1</source>
        <translation>Reserviert TIFF/IT 1</translation>
    </message>
    <message id="TagCatalog.Reserved_TIFF_IT_2">
        <source>Reserved_TIFF_IT_2</source>
        <translation>Reserviert TIFF/IT 2</translation>
    </message>
    <message id="TagCatalog.Reserved_TIFF_IT_3">
        <source>Reserved_TIFF_IT_3</source>
        <translation>Reserviert TIFF/IT 3</translation>
    </message>
    <message id="TagCatalog.Resolution Info">
        <source>Resolution Info</source>
        <translation>Auflösungsinformationen</translation>
    </message>
    <message id="TagCatalog.Resolution Unit">
        <source>Resolution Unit</source>
        <translation>Auflösungseinheit</translation>
    </message>
    <message id="TagCatalog.Rows Per Strip">
        <source>Rows Per Strip</source>
        <translation>Zeilen pro Streifen</translation>
    </message>
    <message id="TagCatalog.SMax Sample Value">
        <source>SMax Sample Value</source>
        <translation>Größter Kanalwert (SMax)</translation>
    </message>
    <message id="TagCatalog.SMin Sample Value">
        <source>SMin Sample Value</source>
        <translation>Kleinster Kanalwert (SMin)</translation>
    </message>
    <message id="TagCatalog.Safe">
        <source>Safe</source>
        <translation>Sicher</translation>
    </message>
    <message id="TagCatalog.Sample Format">
        <source>Sample Format</source>
        <translation>Kanalformat</translation>
    </message>
    <message id="TagCatalog.Samples Per Pixel">
        <source>Samples Per Pixel</source>
        <translation>Kanäle pro Pixel</translation>
    </message>
    <message id="TagCatalog.Saturation">
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message id="TagCatalog.Scene Capture Type">
        <source>Scene Capture Type</source>
        <translation>Motivprogramm</translation>
    </message>
    <message id="TagCatalog.Scene Type">
        <source>Scene Type</source>
        <translation>Szenentyp</translation>
    </message>
    <message id="TagCatalog.Security Classification">
        <source>Security Classification</source>
        <translation>Sicherheitseinstufung</translation>
    </message>
    <message id="TagCatalog.Self Timer Mode">
        <source>Self Timer Mode</source>
        <translation>Selbstauslösermodus</translation>
    </message>
    <message id="TagCatalog.Sensing Method">
        <source>Sensing Method</source>
        <translation>Sensortyp</translation>
    </message>
    <message id="TagCatalog.Shade">
        <source>Shade</source>
        <translation>Schatten</translation>
    </message>
    <message id="TagCatalog.ShadowScale">
        <source>ShadowScale</source>
        <translation>Schattenskalierung</translation>
    </message>
    <message id="TagCatalog.Sharpness">
        <source>Sharpness</source>
        <translation>Schärfe</translation>
    </message>
    <message id="TagCatalog.Short Document ID">
        <source>Short Document ID</source>
        <translation>Kurze Dokumentkennung</translation>
    </message>
    <message id="TagCatalog.Shutter Speed">
        <source>Shutter Speed</source>
        <translation>Verschlusszeit</translation>
    </message>
    <message id="TagCatalog.Shutter priority">
        <source>Shutter priority</source>
        <translation>Zeitvorwahl (Blendenautomatik)</translation>
    </message>
    <message id="TagCatalog.Similarity Index">
        <source>Similarity Index</source>
        <translation>Ähnlichkeitsindex</translation>
    </message>
    <message id="TagCatalog.Site">
        <source>Site</source>
        <translation>Standort</translation>
    </message>
    <message id="TagCatalog.Slices">
        <source>Slices</source>
        <translation>Slices</translation>
    </message>
    <message id="TagCatalog.Soft">
        <source>Soft</source>
        <translation>Weich</translation>
    </message>
    <message id="TagCatalog.Software">
        <source>Software</source>
        <translation>Software</translation>
    </message>
    <message id="TagCatalog.Source">
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message id="TagCatalog.Spatial Frequency Response">
        <source>Spatial Frequency Response</source>
        <translation>Ortsfrequenzgang</translation>
    </message>
    <message id="TagCatalog.Special Instructions">
        <source>Special Instructions</source>
        <translation>Besondere Anweisungen</translation>
    </message>
    <message id="TagCatalog.Spectral Sensitivity">
        <source>Spectral Sensitivity</source>
        <translation>Spektrale Empfindlichkeit</translation>
    </message>
    <message id="TagCatalog.Speed Unit">
        <source>Speed Unit</source>
        <translation>Geschwindigkeitseinheit</translation>
    </message>
    <message id="TagCatalog.Speed of GPS receiver">
        <source>Speed of GPS receiver</source>
        <translation>Geschwindigkeit des GPS-Empfängers</translation>
    </message>
    <message id="TagCatalog.Spot">
        <source>Spot</source>
        <translation>Spot</translation>
    </message>
    <message id="TagCatalog.Spot Halftone">
        <source>Spot Halftone</source>
        <translation>Rasterung für Volltonfarben</translation>
    </message>
    <message id="TagCatalog.Staggered layout A">
        <source>Staggered layout A</source>
        <translation>Versetzte Anordnung A</translation>
    </message>
    <message id="TagCatalog.Staggered layout B">
        <source>Staggered layout B</source>
        <translation>Versetzte Anordnung B</translation>
    </message>
    <message id="TagCatalog.Staggered layout C">
        <source>Staggered layout C</source>
        <translation>Versetzte Anordnung C</translation>
    </message>
    <message id="TagCatalog.Staggered layout D">
        <source>Staggered layout D</source>
        <translation>Versetzte Anordnung D</translation>
    </message>
    <message id="TagCatalog.Standard">
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message id="TagCatalog.Standard Light A">
        <source>Standard Light A</source>
        <translation>Normlicht A</translation>
    </message>
    <message id="TagCatalog.Standard Light B">
        <source>Standard Light B</source>
        <translation>Normlicht B</translation>
    </message>
    <message id="TagCatalog.Standard Light C">
        <source>Standard Light C</source>
        <translation>Normlicht C</translation>
    </message>
    <message id="TagCatalog.StoNits">
        <source>StoNits</source>
        <translation>StoNits</translation>
    </message>
    <message id="TagCatalog.Strip Byte Counts">
        <source>Strip Byte Counts</source>
        <translation>Bytes pro Streifen</translation>
    </message>
    <message id="TagCatalog.Strip OffSets">
        <source>Strip OffSets</source>
        <translation>Streifen-Offsets</translation>
    </message>
    <message id="TagCatalog.Sub File Type">
        <source>Sub File Type</source>
        <translation>Unterdateityp</translation>
    </message>
    <message id="TagCatalog.Sub Location">
        <source>Sub Location</source>
        <translation>Ortsdetail</translation>
    </message>
    <message id="TagCatalog.Sub Seconds of Time">
        <source>Sub Seconds of Time</source>
        <translation>Sekundenbruchteile</translation>
    </message>
    <message id="TagCatalog.SubIFDs">
        <source>SubIFDs</source>
        <translation>Sub-IFDs</translation>
    </message>
    <message id="TagCatalog.Subject Area">
        <source>Subject Area</source>
        <translation>Motivbereich</translation>
    </message>
    <message id="TagCatalog.Subject Distance">
        <source>Subject Distance</source>
        <translation>Motiventfernung</translation>
    </message>
    <message id="TagCatalog.Subject Distance Range">
        <source>Subject Distance Range</source>
        <translation>Motiventfernungsbereich</translation>
    </message>
    <message id="TagCatalog.Subject Location">
        <source>Subject Location</source>
        <translation>Motivposition</translation>
    </message>
    <message id="TagCatalog.Subject Reference">
        <source>Subject Reference</source>
        <translation>Themenreferenz</translation>
    </message>
    <message id="TagCatalog.Supplemental Category">
        <source>Supplemental Category</source>
        <translation>Zusatzkategorie</translation>
    </message>
    <message id="TagCatalog.T4-encoding: CCITT T.4 bi-level encoding.">
        <source>T4-encoding: CCITT T.4 bi-level encoding.</source>
        <translation>T4-Kodierung: CCITT T.4 für Schwarzweißbilder</translation>
    </message>
    <message id="TagCatalog.T6-encoding: CCITT T.6 bi-level encoding.">
        <source>T6-encoding: CCITT T.6 bi-level encoding.</source>
        <translation>T6-Kodierung: CCITT T.6 für Schwarzweißbilder</translation>
    </message>
    <message id="TagCatalog.TIFF/EPS Standard ID">
        <source>TIFF/EPS Standard ID</source>
        <translation>TIFF/EP-Standardkennung</translation>
    </message>
    <message id="TagCatalog.Tansparent Index">
        <source>Tansparent Index</source>
        <translation>Transparenzindex</translation>
    </message>
    <message id="TagCatalog.Target Printer">
        <source>Target Printer</source>
        <translation>Zieldrucker</translation>
    </message>
    <message id="TagCatalog.Three-chip color area sensor">
        <source>Three-chip color area sensor</source>
        <translation>Drei-Chip-Farbflächensensor</translation>
    </message>
    <message id="TagCatalog.Threshholding">
        <source>Threshholding</source>
        <translation>Schwellenwertverfahren</translation>
    </message>
    <message id="TagCatalog.Thumbnail resource">
        <source>Thumbnail resource</source>
        <translation>Vorschaubild</translation>
    </message>
    <message id="TagCatalog.Tile Byte Counts">
        <source>Tile Byte Counts</source>
        <translation>Bytes pro Kachel</translation>
    </message>
    <message id="TagCatalog.Tile Depth">
        <source>Tile Depth</source>
        <translation>Kacheltiefe</translation>
    </message>
    <message id="TagCatalog.Tile Length">
        <source>Tile Length</source>
        <translation>Kachelhöhe</translation>
    </message>
    <message id="TagCatalog.Tile Offsets">
        <source>Tile Offsets</source>
        <translation>Kachel-Offsets</translation>
    </message>
    <message id="TagCatalog.Tile Width">
        <source>Tile Width</source>
        <translation>Kachelbreite</translation>
    </message>
    <message id="TagCatalog.Time Zone">
        <source>Time Zone</source>
        <translation>Zeitzone</translation>
    </message>
    <message id="TagCatalog.Time Zone Offset">
        <source>Time Zone Offset</source>
        <translation>Zeitzonenverschiebung</translation>
    </message>
    <message id="TagCatalog.Title">
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message id="TagCatalog.Transfer Function">
        <source>Transfer Function</source>
        <translation>Übertragungsfunktion</translation>
    </message>
    <message id="TagCatalog.Transfer Range">
        <source>Transfer Range</source>
        <translation>Übertragungsbereich</translation>
    </message>
    <message id="TagCatalog.Transparency Indicator">
        <source>Transparency Indicator</source>
        <translation>Kennzeichen der Transparenz</translation>
    </message>
    <message id="TagCatalog.Transparency Mask">
        <source>Transparency Mask</source>
        <translation>Transparenzmaske</translation>
    </message>
    <message id="TagCatalog.Trap Indicator">
        <source>Trap Indicator</source>
        <translation>Kennzeichen der Überfüllung</translation>
    </message>
    <message id="TagCatalog.Trilinear Sensor">
        <source>Trilinear Sensor</source>
        <translation>Trilinearer Sensor</translation>
    </message>
    <message id="TagCatalog.Tungsten (incandescent light)">
        <source>Tungsten (incandescent light)</source>
        <translation>Kunstlicht (Glühlampe)</translation>
    </message>
    <message id="TagCatalog.Two-chip color area sensor">
        <source>Two-chip color area sensor</source>
        <translation>Zwei-Chip-Farbflächensensor</translation>
    </message>
    <message id="TagCatalog.URL">
        <source>URL</source>
        <translation>URL</translation>
    </message>
    <message id="TagCatalog.URL List">
        <source>URL List</source>
        <translation>URL-Liste</translation>
    </message>
    <message id="TagCatalog.Unassociated alpha data">
        <source>Unassociated alpha data</source>
        <translation>Nicht zugeordnete Alphadaten</translation>
    </message>
    <message id="TagCatalog.Uncalibrated">
        <source>Uncalibrated</source>
        <translation>Nicht kalibriert</translation>
    </message>
    <message id="TagCatalog.Unicode Alpha Names">
        <source>Unicode Alpha Names</source>
        <translation>Unicode-Alphakanalnamen</translation>
    </message>
    <message id="TagCatalog.Unique Document ID">
        <source>Unique Document ID</source>
        <translation>Eindeutige Dokumentkennung</translation>
    </message>
    <message id="TagCatalog.UniqueCameraModel">
        <source>UniqueCameraModel</source>
        <translation>Eindeutiges Kameramodell</translation>
    </message>
    <message id="TagCatalog.Unknown">
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message id="TagCatalog.Unspecified Data">
        <source>Unspecified Data</source>
        <translation>Nicht näher bestimmte Daten</translation>
    </message>
    <message id="TagCatalog.Upsidedown">
        <source>Upsidedown</source>
        <translation>Auf dem Kopf</translation>
    </message>
    <message id="TagCatalog.Upsidedown Mirrored">
        <source>Upsidedown Mirrored</source>
        <translation>Auf dem Kopf, gespiegelt</translation>
    </message>
    <message id="TagCatalog.User Comment">
        <source>User Comment</source>
        <translation>Benutzerkommentar</translation>
    </message>
    <message id="TagCatalog.Version">
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message id="TagCatalog.Version Info">
        <source>Version Info</source>
        <translation>Versionsinformationen</translation>
    </message>
    <message id="TagCatalog.ViewingConditions">
        <source>ViewingConditions</source>
        <translation>Betrachtungsbedingungen</translation>
    </message>
    <message id="TagCatalog.Watermark">
        <source>Watermark</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message id="TagCatalog.White Balance">
        <source>White Balance</source>
        <translation>Weißabgleich</translation>
    </message>
    <message id="TagCatalog.White Point">
        <source>White Point</source>
        <translation>Weißpunkt</translation>
    </message>
    <message id="TagCatalog.White fluorescent (WW 3200 – 3700K)">
        <source>White fluorescent (WW 3200 – 3700K)</source>
        <translation>Weiße Leuchtstofflampe (WW 3200–3700 K)</translation>
    </message>
    <message id="TagCatalog.White is Zero">
        <source>White is Zero</source>
        <translation>Weiß ist null</translation>
    </message>
    <message id="TagCatalog.WhiteLevel">
        <source>WhiteLevel</source>
        <translation>Weißpegel</translation>
    </message>
    <message id="TagCatalog.Width">
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message id="TagCatalog.Windows® Author">
        <source>Windows® Author</source>
        <translation>Windows-Autor</translation>
    </message>
    <message id="TagCatalog.Windows® Comment">
        <source>Windows® Comment</source>
        <translation>Windows-Kommentar</translation>
    </message>
    <message id="TagCatalog.Windows® Keywords">
        <source>Windows® Keywords</source>
        <translation>Windows-Schlagwörter</translation>
    </message>
    <message id="TagCatalog.Windows® Rating">
        <source>Windows® Rating</source>
        <translation>Windows-Bewertung</translation>
    </message>
    <message id="TagCatalog.Windows® Subject">
        <source>Windows® Subject</source>
        <translation>Windows-Thema</translation>
    </message>
    <message id="TagCatalog.Windows® Title">
        <source>Windows® Title</source>
        <translation>Windows-Titel</translation>
    </message>
    <message id="TagCatalog.Workflow URL">
        <source>Workflow URL</source>
        <translation>Workflow-URL</translation>
    </message>
    <message id="TagCatalog.Working path">
        <source>Working path</source>
        <translation>Arbeitspfad</translation>
    </message>
    <message id="TagCatalog.Wrap Modes">
        <source>Wrap Modes</source>
        <translation>Wrap-Modi</translation>
    </message>
    <message id="TagCatalog.Writer Serial Number">
        <source>Writer Serial Number</source>
        <translation>Seriennummer des Schreibgeräts</translation>
    </message>
    <message id="TagCatalog.X Position">
        <source>X Position</source>
        <translation>X-Position</translation>
    </message>
    <message id="TagCatalog.X Resolution">
        <source>X Resolution</source>
        <translation>X-Auflösung</translation>
    </message>
    <message id="TagCatalog.XMP">
        <source>XMP</source>
        <translation>XMP</translation>
    </message>
    <message id="TagCatalog.Y Position">
        <source>Y Position</source>
        <translation>Y-Position</translation>
    </message>
    <message id="TagCatalog.Y Resolution">
        <source>Y Resolution</source>
        <translation>Y-Auflösung</translation>
    </message>
    <message id="TagCatalog.YCBCR Coefficients">
        <source>YCBCR Coefficients</source>
        <translation>YCbCr-Koeffizienten</translation>
    </message>
    <message id="TagCatalog.YCBCR Positioning">
        <source>YCBCR Positioning</source>
        <translation>YCbCr-Positionierung</translation>
    </message>
    <message id="TagCatalog.YCBCR SubSampling">
        <source>YCBCR SubSampling</source>
        <translation>YCbCr-Unterabtastung</translation>
    </message>
    <message id="TagCatalog.YCbCr">
        <source>YCbCr</source>
        <translation>YCbCr</translation>
    </message>
    <message id="TagCatalog.blueMatrixColumn">
        <source>blueMatrixColumn</source>
        <translation>Blaue Matrixspalte</translation>
    </message>
    <message id="TagCatalog.blueTRC">
        <source>blueTRC</source>
        <translation>Blaue Tonwertkurve</translation>
    </message>
    <message id="TagCatalog.calibrationDateTime">
        <source>calibrationDateTime</source>
        <translation>Kalibrierungszeitpunkt</translation>
    </message>
    <message id="TagCatalog.centered">
        <source>centered</source>
        <translation>Zentriert</translation>
    </message>
    <message id="TagCatalog.charTarget">
        <source>charTarget</source>
        <translation>Charakterisierungsvorlage</translation>
    </message>
    <message id="TagCatalog.chromaticAdaptation">
        <source>chromaticAdaptation</source>
        <translation>Chromatische Adaption</translation>
    </message>
    <message id="TagCatalog.chromaticity">
        <source>chromaticity</source>
        <translation>Chromatizität</translation>
    </message>
    <message id="TagCatalog.colorantOrderTag">
        <source>colorantOrderTag</source>
        <translation>Reihenfolge der Farbmittel</translation>
    </message>
    <message id="TagCatalog.colorantTable">
        <source>colorantTable</source>
        <translation>Farbmitteltabelle</translation>
    </message>
    <message id="TagCatalog.colorantTableOut">
        <source>colorantTableOut</source>
        <translation>Farbmitteltabelle (Ausgabe)</translation>
    </message>
    <message id="TagCatalog.com.apple.print.PageFormatTicket">
        <source>com.apple.print.PageFormatTicket</source>
        <translation>com.apple.print.PageFormatTicket</translation>
    </message>
    <message id="TagCatalog.copyright">
        <source>copyright</source>
        <translation>Copyright</translation>
    </message>
    <message id="TagCatalog.cosited">
        <source>cosited</source>
        <translation>Deckungsgleich</translation>
    </message>
    <message id="TagCatalog.deviceMfgDesc">
        <source>deviceMfgDesc</source>
        <translation>Beschreibung des Geräteherstellers</translation>
    </message>
    <message id="TagCatalog.deviceModelDesc">
        <source>deviceModelDesc</source>
        <translation>Beschreibung des Gerätemodells</translation>
    </message>
    <message id="TagCatalog.gamut">
        <source>gamut</source>
        <translation>Farbumfang</translation>
    </message>
    <message id="TagCatalog.grayTRC">
        <source>grayTRC</source>
        <translation>Graue Tonwertkurve</translation>
    </message>
    <message id="TagCatalog.greenMatrixColumn">
        <source>greenMatrixColumn</source>
        <translation>Grüne Matrixspalte</translation>
    </message>
    <message id="TagCatalog.greenTRC">
        <source>greenTRC</source>
        <translation>Grüne Tonwertkurve</translation>
    </message>
    <message id="TagCatalog.lensInfo">
        <source>lensInfo</source>
        <translation>Objektivdaten</translation>
    </message>
    <message id="TagCatalog.luminance">
        <source>luminance</source>
        <translation>Leuchtdichte</translation>
    </message>
    <message id="TagCatalog.measurement">
        <source>measurement</source>
        <translation>Messung</translation>
    </message>
    <message id="TagCatalog.mediaBlackPoint">
        <source>mediaBlackPoint</source>
        <translation>Medienschwarzpunkt</translation>
    </message>
    <message id="TagCatalog.mediaWhitePoint">
        <source>mediaWhitePoint</source>
        <translation>Medienweißpunkt</translation>
    </message>
    <message id="TagCatalog.namedColor2">
        <source>namedColor2</source>
        <translation>Benannte Farben 2</translation>
    </message>
    <message id="TagCatalog.none">
        <source>none</source>
        <translation>Keine</translation>
    </message>
    <message id="TagCatalog.not CMYK">
        <source>not CMYK</source>
        <translation>Nicht CMYK</translation>
    </message>
    <message id="TagCatalog.other light source">
        <source>other light source</source>
        <translation>Andere Lichtquelle</translation>
    </message>
    <message id="TagCatalog.outputResponse">
        <source>outputResponse</source>
        <translation>Ausgabeverhalten</translation>
    </message>
    <message id="TagCatalog.preview0">
        <source>preview0</source>
        <translation>Vorschau 0</translation>
    </message>
    <message id="TagCatalog.preview1">
        <source>preview1</source>
        <translation>Vorschau 1</translation>
    </message>
    <message id="TagCatalog.preview2">
        <source>preview2</source>
        <translation>Vorschau 2</translation>
    </message>
    <message id="TagCatalog.profileDescription">
        <source>profileDescription</source>
        <translation>Profilbeschreibung</translation>
    </message>
    <message id="TagCatalog.profileSequenceDesc">
        <source>profileSequenceDesc</source>
        <translation>Beschreibung der Profilfolge</translation>
    </message>
    <message id="TagCatalog.redTRC">
        <source>redTRC</source>
        <translation>Rote Tonwertkurve</translation>
    </message>
    <message id="TagCatalog.redmatrixColumn">
        <source>redmatrixColumn</source>
        <translation>Rote Matrixspalte</translation>
    </message>
    <message id="TagCatalog.sRGB">
        <source>sRGB</source>
        <translation>sRGB</translation>
    </message>
    <message id="TagCatalog.technology">
        <source>technology</source>
        <translation>Technologie</translation>
    </message>
    <message id="TagCatalog.two's complement signed integer data">
        <source>two's complement signed integer data</source>
        <translation>Ganzzahlen mit Vorzeichen (Zweierkomplement)</translation>
    </message>
    <message id="TagCatalog.undefined data format">
        <source>undefined data format</source>
        <translation>Undefiniertes Datenformat</translation>
    </message>
    <message id="TagCatalog.unknown">
        <source>unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message id="TagCatalog.unsigned integer data">
        <source>unsigned integer data</source>
        <translation>Ganzzahlen ohne Vorzeichen</translation>
    </message>
    <message id="TagCatalog.viewingCondDesc">
        <source>viewingCondDesc</source>
        <translation>Beschreibung der Betrachtungsbedingungen</translation>
    </message>
    <message id="ToolButtons.kBeforeAfter">
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message id="ToolButtons.kBeforeAfterHelp">
        <source>Shows the photo beside itself before the changes.</source>
        <translation>Zeigt das Foto neben sich selbst vor den Änderungen.</translation>
    </message>
    <message id="ToolButtons.kBrowser">
        <source>Back To Browser</source>
        <translation>Zur Übersicht</translation>
    </message>
    <message id="ToolButtons.kBrowserHelp">
        <source>Return to browser to find images</source>
        <translation>Zurück zur Übersicht, um Bilder zu suchen</translation>
    </message>
    <message id="ToolButtons.kCopy">
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message id="ToolButtons.kCopyHelp">
        <source>Copies the image as it is to the clipboard for use with other applications.</source>
        <translation>Kopiert das Bild, wie es ist, für andere Programme in die Zwischenablage.</translation>
    </message>
    <message id="ToolButtons.kCrop">
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message id="ToolButtons.kCropHelp">
        <source>Trim the fat from the picture to focus in or change the aspect ratio.</source>
        <translation>Überflüssiges abschneiden oder das Seitenverhältnis ändern.</translation>
    </message>
    <message id="ToolButtons.kEditor">
        <source>Return To Editor</source>
        <translation>Zum Editor</translation>
    </message>
    <message id="ToolButtons.kEditorHelp">
        <source>Opens the selected images in the editor, where effects can be applied to the photo.</source>
        <translation>Öffnet die ausgewählten Bilder im Editor, wo Effekte auf sie angewendet werden.</translation>
    </message>
    <message id="ToolButtons.kInfo">
        <source>Get Info</source>
        <translation>Informationen</translation>
    </message>
    <message id="ToolButtons.kInfoHelp">
        <source>Displays information about the selected file.</source>
        <translation>Zeigt Informationen über die ausgewählte Datei.</translation>
    </message>
    <message id="ToolButtons.kOpen">
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message id="ToolButtons.kOpenHelp">
        <source>Choose a photo to edit.</source>
        <translation>Ein Foto zum Bearbeiten auswählen.</translation>
    </message>
    <message id="ToolButtons.kRotate">
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message id="ToolButtons.kRotateHelp">
        <source>Rotate or Flip the whole image</source>
        <translation>Das ganze Bild drehen oder spiegeln</translation>
    </message>
    <message id="ToolButtons.kSave">
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message id="ToolButtons.kSaveCopy">
        <source>Save Copy</source>
        <translation>Kopie sichern</translation>
    </message>
    <message id="ToolButtons.kSaveCopyHelp">
        <source>Writes the finished picture as an image file.</source>
        <translation>Schreibt das fertige Bild als Bilddatei.</translation>
    </message>
    <message id="ToolButtons.kSaveHelp">
        <source>Save the picture with the changes that have been made.</source>
        <translation>Sichert das Bild mit den Änderungen.</translation>
    </message>
    <message id="ToolButtons.kUndoHelp">
        <source>Undoes the last action you performed if available</source>
        <translation>Nimmt die letzte Handlung zurück, wenn es eine gibt</translation>
    </message>
    <message id="VolumeItem.kShareOn">
        <source>&lt;share&gt; on &lt;server&gt;</source>
        <translation>&lt;share&gt; auf &lt;server&gt;</translation>
    </message>
    <message id="VolumeItem.ErrorEjectFailedInUseExplaniation">
        <source>Try closing unused documents and applications, especially documents that are saved on the device.</source>
        <translation>Schließen Sie Dokumente und Programme, vor allem Dokumente, die auf dem Gerät liegen.</translation>
    </message>
    <message id="VolumeItem.ErrorEjectFailedInUseMessage">
        <source>The device "&lt;deviceName&gt;" couldn't be ejected at the moment, because it is currently in use.</source>
        <translation>Das Gerät „&lt;deviceName&gt;“ kann im Moment nicht ausgeworfen werden, weil es benutzt wird.</translation>
    </message>
    <message id="VolumeItem.kMediaFixedDisk">
        <source>Hard Drive</source>
        <translation>Festplatte</translation>
    </message>
    <message id="VolumeItem.kMediaRemote">
        <source>Remote Volume</source>
        <translation>Netzlaufwerk</translation>
    </message>
    <message id="brivolantProcessorLite.kSameID">
        <source>&lt;module&gt; has the same ID as &lt;other&gt;</source>
        <translation>&lt;module&gt; hat dieselbe Kennung wie &lt;other&gt;</translation>
    </message>
    <message id="ifkSplitter.kOnlyControls">
        <source>Sorry but currently the ifkSplitter only accepts RectControl</source>
        <translation>Der Teiler nimmt zurzeit leider nur Steuerelemente an</translation>
    </message>
    <message id="ifkStaticText.kLinksTo">
        <source>Links to "&lt;url&gt;"</source>
        <translation>Führt zu „&lt;url&gt;“</translation>
    </message>
    <message id="multiViewFileBrowser.kTakenDate">
        <source>Date Taken</source>
        <translation>Aufnahmedatum</translation>
    </message>
    <message id="otherSharedComponents.kDefaultPhotoDirectoryName">
        <source>My Brivolant Photos</source>
        <translation>Meine Brivolant-Fotos</translation>
    </message>
    <message id="otherSharedComponents.kMissingResources">
        <source>&lt;applicationName&gt; is missing its resources and is unable to continue until it can access its resources. Clicking "OK" will take you to a web page where you can download and install a fresh copy of &lt;applicationName&gt;. If you still get this error then please contact &lt;publisherName&gt; using &lt;supportPage&gt;.</source>
        <translation>&lt;applicationName&gt; findet seine Ressourcen nicht und kann ohne sie nicht weiterarbeiten. Ein Klick auf „OK“ führt zu einer Webseite, von der sich &lt;applicationName&gt; neu laden und installieren lässt. Bleibt der Fehler bestehen, wenden Sie sich bitte an &lt;publisherName&gt;: &lt;supportPage&gt;.</translation>
    </message>
    <message id="LanguageTools.kLanguageEnglish">
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message id="LanguageTools.kLanguageEnglishUK">
        <source>English (UK)</source>
        <translation>Englisch (GB)</translation>
    </message>
    <message id="LanguageTools.kLanguageFrench">
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message id="LanguageTools.kLanguageGerman">
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message id="LanguageTools.kLanguageItalian">
        <source>Italian</source>
        <translation>Italienisch</translation>
    </message>
    <message id="LanguageTools.kLanguageDutch">
        <source>Dutch</source>
        <translation>Niederländisch</translation>
    </message>
    <message id="LanguageTools.kLanguageSwedish">
        <source>Swedish</source>
        <translation>Schwedisch</translation>
    </message>
    <message id="LanguageTools.kLanguageSpanish">
        <source>Spanish</source>
        <translation>Spanisch</translation>
    </message>
    <message id="LanguageTools.kLanguageDanish">
        <source>Danish</source>
        <translation>Dänisch</translation>
    </message>
    <message id="LanguageTools.kLanguagePortuguese">
        <source>Portuguese</source>
        <translation>Portugiesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageNorwegian">
        <source>Norwegian</source>
        <translation>Norwegisch</translation>
    </message>
    <message id="LanguageTools.kLanguageHebrew">
        <source>Hebrew</source>
        <translation>Hebräisch</translation>
    </message>
    <message id="LanguageTools.kLanguageJapanese">
        <source>Japanese</source>
        <translation>Japanisch</translation>
    </message>
    <message id="LanguageTools.kLanguageArabic">
        <source>Arabic</source>
        <translation>Arabisch</translation>
    </message>
    <message id="LanguageTools.kLanguageFinnish">
        <source>Finnish</source>
        <translation>Finnisch</translation>
    </message>
    <message id="LanguageTools.kLanguageGreek">
        <source>Greek</source>
        <translation>Griechisch</translation>
    </message>
    <message id="LanguageTools.kLanguageIcelandic">
        <source>Icelandic</source>
        <translation>Isländisch</translation>
    </message>
    <message id="LanguageTools.kLanguageMaltese">
        <source>Maltese</source>
        <translation>Maltesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageTurkish">
        <source>Turkish</source>
        <translation>Türkisch</translation>
    </message>
    <message id="LanguageTools.kLanguageCroation">
        <source>Croation</source>
        <translation>Kroatisch</translation>
    </message>
    <message id="LanguageTools.kLanguageTradChinese">
        <source>Traditional Chinese</source>
        <translation>Traditionelles Chinesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageUrdu">
        <source>Urdu</source>
        <translation>Urdu</translation>
    </message>
    <message id="LanguageTools.kLanguageHindi">
        <source>Hindi</source>
        <translation>Hindi</translation>
    </message>
    <message id="LanguageTools.kLanguageThai">
        <source>Thai</source>
        <translation>Thai</translation>
    </message>
    <message id="LanguageTools.kLanguageKorean">
        <source>Korean</source>
        <translation>Koreanisch</translation>
    </message>
    <message id="LanguageTools.kLanguageLithuanian">
        <source>Lithuanian</source>
        <translation>Litauisch</translation>
    </message>
    <message id="LanguageTools.kLanguagePolish">
        <source>Polish</source>
        <translation>Polnisch</translation>
    </message>
    <message id="LanguageTools.kLanguageHungarian">
        <source>Hungarian</source>
        <translation>Ungarisch</translation>
    </message>
    <message id="LanguageTools.kLanguageEstonian">
        <source>Estonian</source>
        <translation>Estnisch</translation>
    </message>
    <message id="LanguageTools.kLanguageLatvian">
        <source>Latvian</source>
        <translation>Lettisch</translation>
    </message>
    <message id="LanguageTools.kLanguageLapponian">
        <source>Lapponian</source>
        <translation>Samisch</translation>
    </message>
    <message id="LanguageTools.kLanguageFaroese">
        <source>Faroese</source>
        <translation>Färöisch</translation>
    </message>
    <message id="LanguageTools.kLanguagePersian">
        <source>Persian</source>
        <translation>Persisch</translation>
    </message>
    <message id="LanguageTools.kLanguageRussian">
        <source>Russian</source>
        <translation>Russisch</translation>
    </message>
    <message id="LanguageTools.kLanguageSimpChinese">
        <source>Simplified Chinese</source>
        <translation>Vereinfachtes Chinesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageFlemish">
        <source>Flemish</source>
        <translation>Flämisch</translation>
    </message>
    <message id="LanguageTools.kLanguageIrish">
        <source>Irish Gaelic</source>
        <translation>Irisch</translation>
    </message>
    <message id="LanguageTools.kLanguageAlbanian">
        <source>Albanian</source>
        <translation>Albanisch</translation>
    </message>
    <message id="LanguageTools.kLanguageRomanian">
        <source>Romanian</source>
        <translation>Rumänisch</translation>
    </message>
    <message id="LanguageTools.kLanguageCzech">
        <source>Czech</source>
        <translation>Tschechisch</translation>
    </message>
    <message id="LanguageTools.kLanguageSlovak">
        <source>Slovak</source>
        <translation>Slowakisch</translation>
    </message>
    <message id="LanguageTools.kLanguageSlovenian">
        <source>Slovenian</source>
        <translation>Slowenisch</translation>
    </message>
    <message id="LanguageTools.kLanguageYiddish">
        <source>Yiddish</source>
        <translation>Jiddisch</translation>
    </message>
    <message id="LanguageTools.kLanguageSerbian">
        <source>Serbian</source>
        <translation>Serbisch</translation>
    </message>
    <message id="LanguageTools.kLanguageMacedonian">
        <source>Macedonian</source>
        <translation>Mazedonisch</translation>
    </message>
    <message id="LanguageTools.kLanguageBulgarian">
        <source>Bulgarian</source>
        <translation>Bulgarisch</translation>
    </message>
    <message id="LanguageTools.kLanguageUkrainian">
        <source>Ukrainian</source>
        <translation>Ukrainisch</translation>
    </message>
    <message id="LanguageTools.kLanguageBelarusian">
        <source>Belarusian</source>
        <translation>Belarussisch</translation>
    </message>
    <message id="LanguageTools.kLanguageUzbek">
        <source>Uzbek</source>
        <translation>Usbekisch</translation>
    </message>
    <message id="LanguageTools.kLanguageKazakh">
        <source>Kazakh</source>
        <translation>Kasachisch</translation>
    </message>
    <message id="LanguageTools.kLanguageAzerbaijan">
        <source>Azerbaijan (Cyrillic)</source>
        <translation>Aserbaidschanisch (Kyrillisch)</translation>
    </message>
    <message id="LanguageTools.kLanguageAzerbaijanArabic">
        <source>Azerbaijan (Arabic)</source>
        <translation>Aserbaidschanisch (Arabisch)</translation>
    </message>
    <message id="LanguageTools.kLanguageArmenian">
        <source>Armenian</source>
        <translation>Armenisch</translation>
    </message>
    <message id="LanguageTools.kLanguageGeorgian">
        <source>Georgian</source>
        <translation>Georgisch</translation>
    </message>
    <message id="LanguageTools.kLanguageMoldavian">
        <source>Moldavian</source>
        <translation>Moldauisch</translation>
    </message>
    <message id="LanguageTools.kLanguageKirghiz">
        <source>Kirghiz</source>
        <translation>Kirgisisch</translation>
    </message>
    <message id="LanguageTools.kLanguageTajik">
        <source>Tajik</source>
        <translation>Tadschikisch</translation>
    </message>
    <message id="LanguageTools.kLanguageTurkmen">
        <source>Turkmen</source>
        <translation>Turkmenisch</translation>
    </message>
    <message id="LanguageTools.kLanguageMongolian">
        <source>Mongolian</source>
        <translation>Mongolisch</translation>
    </message>
    <message id="LanguageTools.kLanguageMongolianCyrillic">
        <source>Mongolian (Cyrillic)</source>
        <translation>Mongolisch (Kyrillisch)</translation>
    </message>
    <message id="LanguageTools.kLanguagePashto">
        <source>Pashto</source>
        <translation>Paschtu</translation>
    </message>
    <message id="LanguageTools.kLanguageKurdish">
        <source>Kurdish</source>
        <translation>Kurdisch</translation>
    </message>
    <message id="LanguageTools.kLanguageKashmiri">
        <source>Kashmiri</source>
        <translation>Kaschmiri</translation>
    </message>
    <message id="LanguageTools.kLanguageSindhi">
        <source>Sindhi</source>
        <translation>Sindhi</translation>
    </message>
    <message id="LanguageTools.kLanguageTibetan">
        <source>Tibetan</source>
        <translation>Tibetisch</translation>
    </message>
    <message id="LanguageTools.kLanguageNepali">
        <source>Nepali</source>
        <translation>Nepalesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageSanskrit">
        <source>Sanskrit</source>
        <translation>Sanskrit</translation>
    </message>
    <message id="LanguageTools.kLanguageMarathi">
        <source>Marathi</source>
        <translation>Marathi</translation>
    </message>
    <message id="LanguageTools.kLanguageBengali">
        <source>Bengali</source>
        <translation>Bengalisch</translation>
    </message>
    <message id="LanguageTools.kLanguageAssamese">
        <source>Assamese</source>
        <translation>Assamesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageGujarati">
        <source>Gujarati</source>
        <translation>Gujarati</translation>
    </message>
    <message id="LanguageTools.kLanguagePunjabi">
        <source>Punjabi</source>
        <translation>Pandschabi</translation>
    </message>
    <message id="LanguageTools.kLanguageOriya">
        <source>Oriya</source>
        <translation>Oriya</translation>
    </message>
    <message id="LanguageTools.kLanguageMalayalam">
        <source>Malayalam</source>
        <translation>Malayalam</translation>
    </message>
    <message id="LanguageTools.kLanguageKannada">
        <source>Kannada</source>
        <translation>Kannada</translation>
    </message>
    <message id="LanguageTools.kLanguageTamil">
        <source>Tamil</source>
        <translation>Tamil</translation>
    </message>
    <message id="LanguageTools.kLanguageTelugu">
        <source>Telugu</source>
        <translation>Telugu</translation>
    </message>
    <message id="LanguageTools.kLanguageSinhalse">
        <source>Sinhalse</source>
        <translation>Singhalesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageBurmese">
        <source>Burmese</source>
        <translation>Birmanisch</translation>
    </message>
    <message id="LanguageTools.kLanguageKhmer">
        <source>Khmer</source>
        <translation>Khmer</translation>
    </message>
    <message id="LanguageTools.kLanguageLao">
        <source>Lao</source>
        <translation>Laotisch</translation>
    </message>
    <message id="LanguageTools.kLanguageVietnamese">
        <source>Vietnamese</source>
        <translation>Vietnamesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageIndonesian">
        <source>Indonesian</source>
        <translation>Indonesisch</translation>
    </message>
    <message id="LanguageTools.kLanguageTagalog">
        <source>Tagalog</source>
        <translation>Tagalog</translation>
    </message>
    <message id="LanguageTools.kLanguageMalayRoman">
        <source>Malayalan (Roman)</source>
        <translation>Malaiisch (Lateinisch)</translation>
    </message>
    <message id="LanguageTools.kLanguageMalayArabic">
        <source>Malayalan (Arabic)</source>
        <translation>Malaiisch (Arabisch)</translation>
    </message>
    <message id="LanguageTools.kLanguageAmharic">
        <source>Amharic</source>
        <translation>Amharisch</translation>
    </message>
    <message id="LanguageTools.kLanguageTigrinya">
        <source>Tigrinya</source>
        <translation>Tigrinya</translation>
    </message>
    <message id="LanguageTools.kLanguageOromo">
        <source>Oromo</source>
        <translation>Oromo</translation>
    </message>
    <message id="LanguageTools.kLanguageSomali">
        <source>Somali</source>
        <translation>Somali</translation>
    </message>
    <message id="LanguageTools.kLanguageSwahili">
        <source>Swahili</source>
        <translation>Suaheli</translation>
    </message>
    <message id="LanguageTools.kLanguageKinyarwanda">
        <source>Kinyarwanda</source>
        <translation>Kinyarwanda</translation>
    </message>
    <message id="LanguageTools.kLanguageRundi">
        <source>Rundi</source>
        <translation>Rundi</translation>
    </message>
    <message id="LanguageTools.kLanguageChewa">
        <source>Chewa</source>
        <translation>Chewa</translation>
    </message>
    <message id="LanguageTools.kLanguageMalagasy">
        <source>Malagasy</source>
        <translation>Madagassisch</translation>
    </message>
    <message id="LanguageTools.kLanguageEsperanto">
        <source>Esperanto</source>
        <translation>Esperanto</translation>
    </message>
    <message id="LanguageTools.kLanguageWelsh">
        <source>Welsh</source>
        <translation>Walisisch</translation>
    </message>
    <message id="LanguageTools.kLanguageBasque">
        <source>Basque</source>
        <translation>Baskisch</translation>
    </message>
    <message id="LanguageTools.kLanguageCatalan">
        <source>Catalan</source>
        <translation>Katalanisch</translation>
    </message>
    <message id="LanguageTools.kLanguageLatin">
        <source>Latin</source>
        <translation>Latein</translation>
    </message>
    <message id="LanguageTools.kLanguageQuechua">
        <source>Quechua</source>
        <translation>Quechua</translation>
    </message>
    <message id="LanguageTools.kLanguageGuarani">
        <source>Guarani</source>
        <translation>Guarani</translation>
    </message>
    <message id="LanguageTools.kLanguageAymara">
        <source>Aymara</source>
        <translation>Aymara</translation>
    </message>
    <message id="LanguageTools.kLanguageTatar">
        <source>Tatar</source>
        <translation>Tatarisch</translation>
    </message>
    <message id="LanguageTools.kLanguageUighur">
        <source>Uighur</source>
        <translation>Uigurisch</translation>
    </message>
    <message id="LanguageTools.kLanguageDzongka">
        <source>Dzongka</source>
        <translation>Dzongkha</translation>
    </message>
    <message id="LanguageTools.kLanguageJavaneseRoman">
        <source>Javanese</source>
        <translation>Javanisch</translation>
    </message>
    <message id="LanguageTools.kLanguageSudaneseRoman">
        <source>Sudanese</source>
        <translation>Sundanesisch</translation>
    </message>
    <message id="LanguageTools.kLanguage">
        <source>Language:</source>
        <translation>Sprache:</translation>
    </message>
    <message id="App.k1ClickAddedExplaination">
        <source>The 1-Click Style &quot;&lt;filename&gt;&quot; was successfully added to the list and it now avilable for use in the &quot;&lt;catName&gt;&quot; category.</source>
        <translation>Der 1-Klick-Stil „&lt;filename&gt;“ wurde hinzugefügt und steht jetzt in der Kategorie „&lt;catName&gt;“ bereit.</translation>
    </message>
    <message id="App.k1ClickAddedMessage">
        <source>&quot;&lt;filename&gt;&quot; is now added to the 1-Click Styles</source>
        <translation>„&lt;filename&gt;“ gehört jetzt zu den 1-Klick-Stilen</translation>
    </message>
    <message id="MainWindow.kCancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="MainWindow.kDelete1ClickExplaination">
        <source>If you remove this 1-Click Style, the file will be moved to the Trash. Giving you the opportunity to undo this action, however once you empty your Trash it will be gone forever.</source>
        <translation>Wenn Sie diesen 1-Klick-Stil entfernen, kommt die Datei in den Papierkorb. Von dort können Sie sie zurückholen; nach dem Leeren des Papierkorbs ist sie für immer fort.</translation>
    </message>
    <message id="MainWindow.kDelete1ClickMessage">
        <source>Are you sure you wish to remove &lt;filename&gt;?</source>
        <translation>Möchten Sie &lt;filename&gt; wirklich entfernen?</translation>
    </message>
    <message id="MainWindow.kEditStyle">
        <source>Edit This 1-Click Style</source>
        <translation>Diesen 1-Klick-Stil bearbeiten</translation>
    </message>
    <message id="MainWindow.kLocked1ClickExplaination">
        <source>In order to edit &lt;filename&gt; it must either be unlocked in the finder or copied to a writeable drive first, such as your hard drive.</source>
        <translation>Um &lt;filename&gt; zu bearbeiten, heben Sie den Schreibschutz der Datei auf oder kopieren Sie sie an einen beschreibbaren Ort, etwa auf Ihre Festplatte.</translation>
    </message>
    <message id="MainWindow.kLocked1ClickMessage">
        <source>Editing of &lt;filename&gt; is prohibited because it is eiher locked or stored on a locked drive/disk, such as a CD-ROM</source>
        <translation>&lt;filename&gt; kann nicht bearbeitet werden, weil die Datei geschützt ist oder auf einem schreibgeschützten Laufwerk liegt, etwa einer CD-ROM</translation>
    </message>
    <message id="MainWindow.kNoMailProgram">
        <source>There is no mail program that could be started.</source>
        <translation>Es gibt kein Mailprogramm, das gestartet werden könnte.</translation>
    </message>
    <message id="MainWindow.kRemove">
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message id="MainWindow.kShareStyle">
        <source>Share via e-mail...</source>
        <translation>Per E-Mail senden …</translation>
    </message>
    <message id="MainWindow.kShowInFinder">
        <source>Show In Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message id="MainWindow.keMail1ClickMessage">
        <source>Here is a cool Brivolant Photos 1-Click Style</source>
        <translation>Hier ist ein schöner 1-Klick-Stil für Brivolant Photos</translation>
    </message>
    <message id="Menus.kFileSaveStyleAs">
        <source>Save As 1-Click Style...</source>
        <translation>Als 1-Klick-Stil sichern …</translation>
    </message>
    <message id="OneClickWonder.kDefaultName">
        <source>Untitled</source>
        <translation>Ohne Namen</translation>
    </message>
    <message id="OneClickWonderStorage.kDefaultCategory1">
        <source>Quill Favorites</source>
        <translation>Quill-Favoriten</translation>
    </message>
    <message id="OneClickWonderStorage.kDefaultCategory2">
        <source>Artistic</source>
        <translation>Künstlerisch</translation>
    </message>
    <message id="OneClickWonderStorage.kDefaultCategory3">
        <source>Romantic</source>
        <translation>Romantisch</translation>
    </message>
    <message id="OneClickWonderStorage.kDefaultCategory4">
        <source>Quick Fixes</source>
        <translation>Schnelle Hilfe</translation>
    </message>
    <message id="OneClickWonderStorage.kDefaultCategory5">
        <source>Vintage Camera</source>
        <translation>Alte Kamera</translation>
    </message>
    <message id="OneClickWonderStorage.kDefaultCategoryNameUsers">
        <source>My Styles</source>
        <translation>Meine Stile</translation>
    </message>
    <message id="OneClickWonderStorage.kOneClickNameMultiple">
        <source>1-Click Styles</source>
        <translation>1-Klick-Stile</translation>
    </message>
    <message id="StyleSource.kBadLine">
        <source>Line &lt;line&gt; of the style's source, &quot;&lt;text&gt;&quot;, &lt;reason&gt;.</source>
        <translation>Zeile &lt;line&gt; der Stilquelle, „&lt;text&gt;“, &lt;reason&gt;.</translation>
    </message>
    <message id="StyleSource.kBadValue">
        <source>gives a value that does not fit</source>
        <translation>gibt einen Wert, der nicht passt</translation>
    </message>
    <message id="StyleSource.kNoName">
        <source>The style's source gives it no name.</source>
        <translation>Die Stilquelle nennt keinen Namen.</translation>
    </message>
    <message id="StyleSource.kNoValue">
        <source>has no &quot;=&quot;</source>
        <translation>hat kein „=“</translation>
    </message>
    <message id="StyleSource.kUnknownEffect">
        <source>names an effect that does not exist</source>
        <translation>nennt einen Effekt, den es nicht gibt</translation>
    </message>
    <message id="StyleSource.kUnknownKey">
        <source>names something that a style does not have</source>
        <translation>nennt etwas, das ein Stil nicht hat</translation>
    </message>
    <message id="StyleSource.kUnknownSetting">
        <source>names a setting that its effect does not have</source>
        <translation>nennt eine Einstellung, die der Effekt nicht hat</translation>
    </message>
    <message id="oneClickEditor.kCancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="oneClickEditor.kCategory">
        <source>Category:</source>
        <translation>Kategorie:</translation>
    </message>
    <message id="oneClickEditor.kContact">
        <source>Contact:</source>
        <translation>Kontakt:</translation>
    </message>
    <message id="oneClickEditor.kCreator">
        <source>Made by:</source>
        <translation>Von:</translation>
    </message>
    <message id="oneClickEditor.kDescription">
        <source>Description:</source>
        <translation>Beschreibung:</translation>
    </message>
    <message id="oneClickEditor.kName">
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message id="oneClickEditor.kPreviewHelp">
        <source>Click to render the preview anew</source>
        <translation>Klicken, um die Vorschau neu zu zeichnen</translation>
    </message>
    <message id="oneClickEditor.kSave">
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message id="oneClickEditor.kTitleCreateOneClickWonder">
        <source>Create New 1-Click Style</source>
        <translation>Neuer 1-Klick-Stil</translation>
    </message>
    <message id="oneClickEditor.kTitleEditOneClickWonder">
        <source>Edit 1-Click Style</source>
        <translation>1-Klick-Stil bearbeiten</translation>
    </message>
    <message id="iconObject.kUnableToOpen">
        <source>Unable to open the file</source>
        <translation>Die Datei lässt sich nicht öffnen</translation>
    </message>
    <message id="iconObject.kUnknownFormat">
        <source>Don't understand the format of this file.</source>
        <translation>Das Format dieser Datei ist unbekannt.</translation>
    </message>
    <message id="iPhotoRoll.kTypeAsString">
        <source>iPhoto Event</source>
        <translation>Ereignis der Fotomediathek</translation>
    </message>
    <message id="iPhotoAlbum.kTypeAsString">
        <source>iPhoto Album</source>
        <translation>Album der Fotomediathek</translation>
    </message>
    <message id="ThreadediPhotoReader.kEvents">
        <source>Events</source>
        <translation>Ereignisse</translation>
    </message>
    <message id="multiViewFileBrowser.kName">
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message id="multiViewFileBrowser.kKind">
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message id="multiViewFileBrowser.kFileSize">
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message id="multiViewFileBrowser.kModDate">
        <source>Date Modified</source>
        <translation>Geändert</translation>
    </message>
    <message id="multiViewFileBrowser.kAlias">
        <source>Alias</source>
        <translation>Verknüpfung</translation>
    </message>
    <message id="multiViewFileBrowser.kFolder">
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message id="multiViewFileBrowser.kitem">
        <source>Item</source>
        <translation>Objekt</translation>
    </message>
    <message id="multiViewFileBrowser.kItems">
        <source>Items</source>
        <translation>Objekte</translation>
    </message>
    <message id="multiViewFileBrowser.kSelected">
        <source>&lt;x&gt; of &lt;t&gt; selected</source>
        <translation>&lt;x&gt; von &lt;t&gt; ausgewählt</translation>
    </message>
    <message id="multiViewFileBrowser.kFreeSpace">
        <source>available</source>
        <translation>frei</translation>
    </message>
    <message id="multiViewFileBrowser.kEmptyFolder">
        <source>There is nothing here yet</source>
        <translation>Hier ist noch nichts</translation>
    </message>
    <message id="ifkPathBar.kBack">
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message id="ifkPathBar.kForward">
        <source>Forward</source>
        <translation>Vorwärts</translation>
    </message>
    <message id="Sidebar.kDevices">
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message id="Sidebar.kPlaces">
        <source>Places</source>
        <translation>Orte</translation>
    </message>
    <message id="Sidebar.kComputer">
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
    <message id="Menus.kQuickLook">
        <source>Quick Look</source>
        <translation>Schnellansicht</translation>
    </message>
    <message id="Menus.kFileShowOriginal">
        <source>Show Original</source>
        <translation>Original zeigen</translation>
    </message>
    <message id="Menus.kFileShowInFinder">
        <source>Show In Finder</source>
        <translation>Im Dateimanager zeigen</translation>
    </message>
    <message id="Menus.kAddToSidebar">
        <source>Add To Sidebar</source>
        <translation>Zur Seitenleiste hinzufügen</translation>
    </message>
    <message id="Menus.kFileMoveToTrash">
        <source>Move To Trash</source>
        <translation>In den Papierkorb legen</translation>
    </message>
    <message id="Menus.kEditSelectAll">
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message id="Menus.kEditSelectNone">
        <source>Select &amp;None</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message id="Menus.kViewAsIcons">
        <source>As Icons</source>
        <translation>Als Symbole</translation>
    </message>
    <message id="Menus.kViewAsList">
        <source>As List</source>
        <translation>Als Liste</translation>
    </message>
    <message id="Menus.kViewZoomIn">
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message id="Menus.kViewZoomOut">
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message id="Menus.kViewZoomToFit">
        <source>Zoom To Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message id="Menus.kViewActualSize">
        <source>Actual Size</source>
        <translation>Originalgröße</translation>
    </message>
    <message id="EditorPane.kNameAndScale">
        <source>&lt;filename&gt; (&lt;scale&gt;)</source>
        <translation>&lt;filename&gt; (&lt;scale&gt;)</translation>
    </message>
    <message id="ZoomController.kPercent">
        <source>&lt;percent&gt;%</source>
        <translation>&lt;percent&gt; %</translation>
    </message>
    <message id="Menus.kViewShowHiddenFiles">
        <source>Show Hidden Files</source>
        <translation>Versteckte Dateien zeigen</translation>
    </message>
    <message id="ToolButtons.kQuickLookHelp">
        <source>Open the picture for a bigger look than the file browser.</source>
        <translation>Zeigt das Bild größer als der Browser.</translation>
    </message>
    <message id="MainWindow.kBrokenAliasMessage">
        <source>The original of the alias &quot;&lt;filename&gt;&quot; cannot be found.</source>
        <translation>Das Original der Verknüpfung „&lt;filename&gt;“ ist nicht zu finden.</translation>
    </message>
    <message id="MainWindow.kDeleteAlias">
        <source>Delete Alias</source>
        <translation>Verknüpfung löschen</translation>
    </message>
    <message id="MainWindow.kIconSize">
        <source>Size of icons</source>
        <translation>Größe der Symbole</translation>
    </message>
    <message id="MainWindow.kOpen">
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message id="MainWindow.kOpenEnclosingFolder">
        <source>Open Enclosing Folder</source>
        <translation>Übergeordneten Ordner öffnen</translation>
    </message>
    <message id="MainWindow.kRemoveFromSidebar">
        <source>Remove From Sidebar</source>
        <translation>Aus der Seitenleiste entfernen</translation>
    </message>
    <message id="MainWindow.kNotTrashed">
        <source>The file &quot;&lt;filename&gt;&quot; could not be moved to the trash.</source>
        <translation>Die Datei „&lt;filename&gt;“ konnte nicht in den Papierkorb gelegt werden.</translation>
    </message>
    <message id="MainWindow.kNotCopied">
        <source>The file &quot;&lt;filename&gt;&quot; could not be copied here.</source>
        <translation>Die Datei „&lt;filename&gt;“ konnte nicht hierher kopiert werden.</translation>
    </message>
    <message id="MainWindow.kNotPutBack">
        <source>The file &quot;&lt;filename&gt;&quot; could not be taken out of the trash: its old place is not free.</source>
        <translation>Die Datei „&lt;filename&gt;“ konnte nicht aus dem Papierkorb geholt werden: Ihr alter Platz ist nicht frei.</translation>
    </message>
    <message id="MainWindow.kUpdatingThumbnailCaption">
        <source>Updating Thumbnails</source>
        <translation>Vorschaubilder werden aktualisiert</translation>
    </message>
    <message id="QuickLookWindow.kClose">
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message id="QuickLookWindow.kExitFullScreen">
        <source>Exit Full Screen</source>
        <translation>Vollbild verlassen</translation>
    </message>
    <message id="QuickLookWindow.kFullScreen">
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message id="QuickLookWindow.kPosition">
        <source>&lt;x&gt; of &lt;t&gt;</source>
        <translation>&lt;x&gt; von &lt;t&gt;</translation>
    </message>
    <message id="ToolButtons.kFavoritesAddHelp">
        <source>Adds the selected files/folders to your favorites.</source>
        <translation>Fügt die ausgewählten Dateien und Ordner den Favoriten hinzu.</translation>
    </message>
    <message id="ifkSearchField.kCancelSearch">
        <source>Cancel search</source>
        <translation>Suche abbrechen</translation>
    </message>
    <message id="ifkSearchField.kClearRecent">
        <source>Clear Recent Searches</source>
        <translation>Letzte Suchen löschen</translation>
    </message>
    <message id="ifkSearchField.kDefaultSearchCaption">
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message id="ifkSearchField.kRecent">
        <source>Recent Searches</source>
        <translation>Letzte Suchen</translation>
    </message>
    <message id="ifkSearchField.kWhere">
        <source>Where to search</source>
        <translation>Wo gesucht wird</translation>
    </message>
    <message id="Menus.kViewAsColumns">
        <source>As Columns</source>
        <translation>Als Spalten</translation>
    </message>
    <message id="Menus.kViewSortBy">
        <source>Sort By</source>
        <translation>Sortieren nach</translation>
    </message>
    <message id="Menus.kViewSortDescending">
        <source>Reversed Order</source>
        <translation>Umgekehrte Reihenfolge</translation>
    </message>
    <message id="Menus.kFileRename">
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message id="Menus.kFileAddToFavorites">
        <source>Add To Favorites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message id="Menus.kFileShare">
        <source>Share Via</source>
        <translation>Bereitstellen</translation>
    </message>
    <message id="Menus.kFileShareDevice">
        <source>Other</source>
        <translation>Weitere</translation>
    </message>
    <message id="Menus.kFileShareDesktop">
        <source>Set as Desktop Picture</source>
        <translation>Als Schreibtischbild verwenden</translation>
    </message>
    <message id="MainWindow.kSearchCurrentFolder">
        <source>Search Current Folder</source>
        <translation>Diesen Ordner durchsuchen</translation>
    </message>
    <message id="MainWindow.kSearchEntireComputer">
        <source>Search Entire Computer</source>
        <translation>Ganzen Computer durchsuchen</translation>
    </message>
    <message id="MainWindow.kSearchResults">
        <source>Search Results</source>
        <translation>Suchergebnisse</translation>
    </message>
    <message id="MainWindow.kSearching">
        <source>Searching &lt;folder&gt; (&lt;x&gt; found)</source>
        <translation>&lt;folder&gt; wird durchsucht (&lt;x&gt; gefunden)</translation>
    </message>
    <message id="MainWindow.kSearchingFor">
        <source>Searching...</source>
        <translation>Suche läuft …</translation>
    </message>
    <message id="MainWindow.kNothingFound">
        <source>No photo or folder has this in its name</source>
        <translation>Kein Foto und kein Ordner hat das im Namen</translation>
    </message>
    <message id="PreviewThread.kFailed">
        <source>The photo could not be shown with its effects.</source>
        <translation>Das Foto ließ sich mit seinen Effekten nicht zeigen.</translation>
    </message>
    <message id="EditSession.kLayingOver">
        <source>Laying the picture over the photo...</source>
        <translation>Das Bild wird über das Foto gelegt …</translation>
    </message>
    <message id="ManyEdits.kNotRestored">
        <source>The document &quot;&lt;filename&gt;&quot; could not be brought back.</source>
        <translation>Das Dokument „&lt;filename&gt;“ ließ sich nicht zurückbringen.</translation>
    </message>
    <message id="MainWindow.kWorkGoesOn">
        <source>Files are still being copied, moved or given edits.</source>
        <translation>Es werden noch Dateien kopiert, bewegt oder bearbeitet.</translation>
    </message>
    <message id="MainWindow.kWorkGoesOnExplanation">
        <source>The window can close as soon as all is done. If you end it now, what is done stays, and the rest is left out.</source>
        <translation>Das Fenster kann sich schließen, sobald alles getan ist. Beenden Sie es jetzt, bleibt, was getan ist, und der Rest unterbleibt.</translation>
    </message>
    <message id="CarryMetadata.kDataLeftBehind">
        <source>The copy &quot;&lt;filename&gt;&quot; is complete, but what the photo tells of itself could not go along.</source>
        <translation>Die Kopie „&lt;filename&gt;“ ist vollständig, doch was das Foto von sich erzählt, konnte nicht mitgehen.</translation>
    </message>
    <message id="MetadataWriter.kDamaged">
        <source>The data of &quot;&lt;filename&gt;&quot; cannot be changed: the file is damaged, and more might be lost.</source>
        <translation>Die Angaben von „&lt;filename&gt;“ lassen sich nicht ändern: Die Datei ist beschädigt, und mehr könnte verloren gehen.</translation>
    </message>
    <message id="MetadataWriter.kFailed">
        <source>The data of &quot;&lt;filename&gt;&quot; could not be written: &lt;reason&gt;.</source>
        <translation>Die Angaben von „&lt;filename&gt;“ konnten nicht geschrieben werden: &lt;reason&gt;.</translation>
    </message>
    <message id="MetadataWriter.kLocked">
        <source>The data of &quot;&lt;filename&gt;&quot; cannot be changed: the file is locked, or its folder is.</source>
        <translation>Die Angaben von „&lt;filename&gt;“ lassen sich nicht ändern: Die Datei oder ihr Ordner ist gesperrt.</translation>
    </message>
    <message id="MetadataWriter.kMorePictures">
        <source>The place was not taken out of &quot;&lt;filename&gt;&quot;: behind its picture the file holds others, which may tell it too.</source>
        <translation>Der Ort wurde nicht aus „&lt;filename&gt;“ entfernt: Hinter ihrem Bild enthält die Datei weitere, die ihn ebenfalls nennen können.</translation>
    </message>
    <message id="MetadataWriter.kNotThis">
        <source>The tag &lt;tag&gt; of &quot;&lt;filename&gt;&quot; cannot be given this value.</source>
        <translation>Das Feld &lt;tag&gt; von „&lt;filename&gt;“ kann diesen Wert nicht annehmen.</translation>
    </message>
    <message id="MetadataWriter.kNotWritten">
        <source>The data of &quot;&lt;filename&gt;&quot; cannot be changed: this kind of file is not written.</source>
        <translation>Die Angaben von „&lt;filename&gt;“ lassen sich nicht ändern: Diese Art Datei wird nicht geschrieben.</translation>
    </message>
    <message id="MetadataWriter.kRawNotWritten">
        <source>The data of &quot;&lt;filename&gt;&quot; cannot be changed: raw files are never written.</source>
        <translation>Die Angaben von „&lt;filename&gt;“ lassen sich nicht ändern: Rohdateien werden nie geschrieben.</translation>
    </message>
    <message id="MetadataWriter.kTooLong">
        <source>The data of &quot;&lt;filename&gt;&quot; cannot be changed: it would be longer than such a file can hold.</source>
        <translation>Die Angaben von „&lt;filename&gt;“ lassen sich nicht ändern: Sie würden länger, als eine solche Datei fassen kann.</translation>
    </message>
    <message id="MetadataWriter.kWouldLose">
        <source>The data of &quot;&lt;filename&gt;&quot; was not changed: the tag &lt;tag&gt; would not have survived.</source>
        <translation>Die Angaben von „&lt;filename&gt;“ wurden nicht geändert: Das Feld &lt;tag&gt; hätte es nicht überstanden.</translation>
    </message>
    <message id="MainWindow.kCloseWhenDone">
        <source>Close When Done</source>
        <translation>Danach schließen</translation>
    </message>
    <message id="MainWindow.kEndNow">
        <source>End Now</source>
        <translation>Jetzt beenden</translation>
    </message>
    <message id="MainWindow.kNotRenamed">
        <source>The file &quot;&lt;filename&gt;&quot; could not be renamed to &quot;&lt;name&gt;&quot;.</source>
        <translation>Die Datei „&lt;filename&gt;“ konnte nicht in „&lt;name&gt;“ umbenannt werden.</translation>
    </message>
    <message id="MainWindow.kNameTaken">
        <source>The name &quot;&lt;name&gt;&quot; is taken by another file. Please choose a different name.</source>
        <translation>Der Name „&lt;name&gt;“ gehört schon einer anderen Datei. Bitte wählen Sie einen anderen Namen.</translation>
    </message>
    <message id="MainWindow.kNameNotAllowed">
        <source>The name &quot;&lt;name&gt;&quot; cannot be used: names hold no &quot;/&quot;.</source>
        <translation>Der Name „&lt;name&gt;“ geht nicht: Namen enthalten kein „/“.</translation>
    </message>
    <message id="MainWindow.kNotFavorite">
        <source>The file &quot;&lt;filename&gt;&quot; could not be added to the favorites.</source>
        <translation>Die Datei „&lt;filename&gt;“ konnte den Favoriten nicht hinzugefügt werden.</translation>
    </message>
    <message id="MainWindow.kNoDesktopPicture">
        <source>This desktop did not take the picture &quot;&lt;filename&gt;&quot;.</source>
        <translation>Diese Arbeitsfläche hat das Bild „&lt;filename&gt;“ nicht übernommen.</translation>
    </message>
    <message id="MainWindow.kFavorites">
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message id="PreferencesWindow.kPhotoLibrary">
        <source>Photo Library:</source>
        <translation>Fotomediathek:</translation>
    </message>
    <message id="PreferencesWindow.kLibraryFromPictures">
        <source>As found in Pictures</source>
        <translation>Wie im Bilderordner gefunden</translation>
    </message>
    <message id="PreferencesWindow.kChooseLibrary">
        <source>Choose...</source>
        <translation>Auswählen …</translation>
    </message>
    <message id="PreferencesWindow.kChooseLibraryTitle">
        <source>Choose the File of a Photo Library</source>
        <translation>Datei einer Fotomediathek auswählen</translation>
    </message>
    <message id="PreferencesWindow.kLibraryFile">
        <source>Photo library (AlbumData.xml)</source>
        <translation>Fotomediathek (AlbumData.xml)</translation>
    </message>
    <message id="Sidebar.IPHOTO">
        <source>Photo Library</source>
        <translation>Fotomediathek</translation>
    </message>
    <message id="Sidebar.kFileSystem">
        <source>File System</source>
        <translation>Dateisystem</translation>
    </message>
    <message id="Captions.kCreatorName">
        <source>Creator:</source>
        <translation>Ersteller:</translation>
    </message>
    <message id="SharedPictureEffects.kRecommendPrintSize">
        <source>Recommended Print Size:</source>
        <translation>Empfohlene Druckgröße:</translation>
    </message>
    <message id="multiViewFileBrowser.kTaken">
        <source>Taken: </source>
        <translation>Aufgenommen: </translation>
    </message>
    <message id="multiViewFileBrowser.kCreated">
        <source>Created: </source>
        <translation>Erstellt: </translation>
    </message>
    <message id="multiViewFileBrowser.kInformationShow">
        <source>Show Information</source>
        <translation>Informationen einblenden</translation>
    </message>
    <message id="multiViewFileBrowser.kInformationHide">
        <source>Hide Information</source>
        <translation>Informationen ausblenden</translation>
    </message>
    <message id="multiViewFileBrowser.kPreview">
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message id="multiViewFileBrowser.kUnreadableFolder">
        <source>You may not look into this folder</source>
        <translation>Dieser Ordner darf nicht eingesehen werden</translation>
    </message>
    <message id="FileNames.kUntitled">
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
</context>
</TS>
