<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>CropQuestions</name>
    <message>
        <source>The folder %1 does not exist. Create it?</source>
        <translation>Der Ordner %1 existiert nicht. Soll er angelegt werden?</translation>
    </message>
    <message>
        <source>Replace the original files of the listed image by their crops? The originals cannot be restored.</source>
        <translation>Die Originaldatei des aufgeführten Bildes durch ihren Zuschnitt ersetzen? Das Original lässt sich nicht wiederherstellen.</translation>
    </message>
    <message numerus="yes">
        <source>Replace the original files of the %L1 listed images by their crops? The originals cannot be restored.</source>
        <translation>
            <numerusform>Die Originaldatei des %L1 aufgeführten Bildes durch ihren Zuschnitt ersetzen? Das Original lässt sich nicht wiederherstellen.</numerusform>
            <numerusform>Die Originaldateien der %L1 aufgeführten Bilder durch ihre Zuschnitte ersetzen? Die Originale lassen sich nicht wiederherstellen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Anlegen</translation>
    </message>
    <message>
        <source>Replace the Originals</source>
        <translation>Originale ersetzen</translation>
    </message>
    <message>
        <source>Write Copies</source>
        <translation>Kopien schreiben</translation>
    </message>
    <message>
        <source>Number the Clashing Files</source>
        <translation>Kollidierende Dateien nummerieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The crop rectangle leaves every image uncropped. Write uncropped copies?</source>
        <translation>Das Zuschnittrechteck lässt jedes Bild unbeschnitten. Unbeschnittene Kopien schreiben?</translation>
    </message>
    <message numerus="yes">
        <source>… and %L1 more</source>
        <translation>
            <numerusform>… und %L1 weitere</numerusform>
            <numerusform>… und %L1 weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 images would be written to the same files, one over another:</source>
        <translation>
            <numerusform>%L1 Bild würde in dieselbe Datei geschrieben, eines über das andere:</numerusform>
            <numerusform>%L1 Bilder würden in dieselben Dateien geschrieben, eines über das andere:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CropResult</name>
    <message>
        <source>Not cropped: %1 (%2)</source>
        <translation>Nicht zugeschnitten: %1 (%2)</translation>
    </message>
    <message>
        <source>Skipped: %1 (%2 already exists and was kept)</source>
        <translation>Übersprungen: %1 (%2 existiert bereits und wurde behalten)</translation>
    </message>
    <message>
        <source>Metadata not kept: %1 (%2)</source>
        <translation>Metadaten nicht übernommen: %1 (%2)</translation>
    </message>
    <message>
        <source>Warning: %1 (%2)</source>
        <translation>Warnung: %1 (%2)</translation>
    </message>
    <message>
        <source>Images cropped successfully.</source>
        <translation>Bilder erfolgreich zugeschnitten.</translation>
    </message>
    <message>
        <source>Some images could not be cropped.</source>
        <translation>Einige Bilder konnten nicht zugeschnitten werden.</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
</context>
<context>
    <name>DesktopLaunch</name>
    <message>
        <source>Some items could not be added.</source>
        <translation>Einige Einträge konnten nicht hinzugefügt werden.</translation>
    </message>
</context>
<context>
    <name>DimensionText</name>
    <message>
        <source>Width: </source>
        <translation>Breite: </translation>
    </message>
    <message>
        <source>Height: </source>
        <translation>Höhe: </translation>
    </message>
</context>
<context>
    <name>Engine</name>
    <message>
        <source>cannot decode: %1</source>
        <translation>kann nicht dekodiert werden: %1</translation>
    </message>
    <message>
        <source>cannot crop: %1</source>
        <translation>kann nicht zugeschnitten werden: %1</translation>
    </message>
    <message>
        <source>cannot write: %1</source>
        <translation>kann nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>cannot carry metadata: %1</source>
        <translation>Metadaten können nicht übernommen werden: %1</translation>
    </message>
    <message>
        <source>; </source>
        <translation>; </translation>
    </message>
    <message>
        <source>attention placement could not be found; centred</source>
        <translation>keine Platzierung nach Blickfang gefunden; zentriert</translation>
    </message>
    <message>
        <source>entropy placement could not be found; centred</source>
        <translation>keine Platzierung nach Entropie gefunden; zentriert</translation>
    </message>
    <message>
        <source>Clipped to %1 × %2</source>
        <translation>Beschnitten auf %1 × %2</translation>
    </message>
    <message>
        <source>Whole image: neither pixels nor percents are chosen</source>
        <translation>Ganzes Bild: weder Pixel noch Prozent gewählt</translation>
    </message>
    <message>
        <source>Whole image: the rectangle is empty</source>
        <translation>Ganzes Bild: das Rechteck ist leer</translation>
    </message>
    <message>
        <source>Whole image: the rectangle lies outside this image</source>
        <translation>Ganzes Bild: das Rechteck liegt außerhalb dieses Bildes</translation>
    </message>
    <message>
        <source>Whole image: less than a pixel of the rectangle lies on this image</source>
        <translation>Ganzes Bild: weniger als ein Pixel des Rechtecks liegt auf diesem Bild</translation>
    </message>
    <message>
        <source>Whole image: nothing but background to trim</source>
        <translation>Ganzes Bild: nichts als Hintergrund zum Abschneiden</translation>
    </message>
    <message>
        <source>first frame only (of %1)</source>
        <translation>nur das erste Bild (von %1)</translation>
    </message>
    <message>
        <source>faces were not looked for; placed by attention</source>
        <translation>nicht nach Gesichtern gesucht; nach Blickfang platziert</translation>
    </message>
    <message>
        <source>faces were not looked for; centred</source>
        <translation>nicht nach Gesichtern gesucht; zentriert</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1; placed by attention</source>
        <translation>Gesichter konnten nicht gesucht werden: %1; nach Blickfang platziert</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1; centred</source>
        <translation>Gesichter konnten nicht gesucht werden: %1; zentriert</translation>
    </message>
    <message>
        <source>no face found; placed by attention</source>
        <translation>kein Gesicht gefunden; nach Blickfang platziert</translation>
    </message>
    <message>
        <source>no face found; centred</source>
        <translation>kein Gesicht gefunden; zentriert</translation>
    </message>
    <message>
        <source>the portrait needs a face, and none was looked for</source>
        <translation>das Porträt braucht ein Gesicht, und es wurde keines gesucht</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1</source>
        <translation>Gesichter konnten nicht gesucht werden: %1</translation>
    </message>
    <message>
        <source>no face found for the portrait</source>
        <translation>kein Gesicht für das Porträt gefunden</translation>
    </message>
    <message>
        <source>the face is too near the image&apos;s edges for the portrait as asked; made smaller and moved onto the image</source>
        <translation>das Gesicht liegt zu nah an den Bildrändern für das gewünschte Porträt; verkleinert und auf das Bild verschoben</translation>
    </message>
    <message>
        <source>the face is too near the image&apos;s edge for the portrait as asked; moved onto the image</source>
        <translation>das Gesicht liegt zu nah am Bildrand für das gewünschte Porträt; auf das Bild verschoben</translation>
    </message>
    <message>
        <source>made smaller to %1 × %2 to fit %3</source>
        <translation>auf %1 × %2 verkleinert, um in %3 zu passen</translation>
    </message>
    <message>
        <source>the file is not an image Vellumo can read</source>
        <translation>die Datei ist kein Bild, das Vellumo lesen kann</translation>
    </message>
    <message>
        <source>the image&apos;s size cannot be read</source>
        <translation>die Größe des Bildes kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Lossless: widened to the file&apos;s %1 × %2 blocks</source>
        <translation>Verlustfrei: auf die %1 × %2 Blöcke der Datei erweitert</translation>
    </message>
    <message>
        <source>%1 column at the left edge left out (a partial block)</source>
        <translation>%1 Spalte am linken Rand ausgelassen (ein angeschnittener Block)</translation>
    </message>
    <message>
        <source>%1 columns at the left edge left out (a partial block)</source>
        <translation>%1 Spalten am linken Rand ausgelassen (ein angeschnittener Block)</translation>
    </message>
    <message>
        <source>%1 row at the top edge left out (a partial block)</source>
        <translation>%1 Zeile am oberen Rand ausgelassen (ein angeschnittener Block)</translation>
    </message>
    <message>
        <source>%1 rows at the top edge left out (a partial block)</source>
        <translation>%1 Zeilen am oberen Rand ausgelassen (ein angeschnittener Block)</translation>
    </message>
    <message>
        <source>Re-encoded: this JPEG cannot be cropped without re-encoding</source>
        <translation>Neu kodiert: dieses JPEG lässt sich nicht ohne Neukodierung zuschneiden</translation>
    </message>
    <message>
        <source>Re-encoded: a resized crop cannot be lossless</source>
        <translation>Neu kodiert: ein skalierter Zuschnitt kann nicht verlustfrei sein</translation>
    </message>
    <message>
        <source>Re-encoded: a padded picture cannot be lossless</source>
        <translation>Neu kodiert: ein aufgefülltes Bild kann nicht verlustfrei sein</translation>
    </message>
    <message>
        <source>Re-encoded: the rectangle holds no whole block of the file</source>
        <translation>Neu kodiert: das Rechteck enthält keinen ganzen Block der Datei</translation>
    </message>
    <message>
        <source>%1 has no value: left empty in the name</source>
        <translation>%1 hat keinen Wert: im Namen leer gelassen</translation>
    </message>
    <message>
        <source>%1 have no value: left empty in the name</source>
        <translation>%1 haben keinen Wert: im Namen leer gelassen</translation>
    </message>
    <message>
        <source>not enlarged: the crop is %1 × %2</source>
        <translation>nicht vergrößert: der Zuschnitt ist %1 × %2</translation>
    </message>
    <message>
        <source>The name template cannot be used: %1.</source>
        <translation>Die Namensvorlage kann nicht verwendet werden: %1.</translation>
    </message>
    <message>
        <source>There are no images to crop.</source>
        <translation>Es gibt keine Bilder zum Zuschneiden.</translation>
    </message>
    <message>
        <source>Please select an output folder.</source>
        <translation>Bitte wählen Sie einen Ausgabeordner.</translation>
    </message>
</context>
<context>
    <name>JobStatusText</name>
    <message>
        <source>about %L1 s left</source>
        <translation>noch etwa %L1 s</translation>
    </message>
    <message>
        <source>about %L1 min left</source>
        <translation>noch etwa %L1 min</translation>
    </message>
    <message>
        <source>Cropping %L1 of %L2</source>
        <translation>Zuschnitt %L1 von %L2</translation>
    </message>
</context>
<context>
    <name>LaunchArguments</name>
    <message>
        <source>“%1” does not exist.</source>
        <translation>„%1“ existiert nicht.</translation>
    </message>
    <message>
        <source>“%1” holds no images.</source>
        <translation>„%1“ enthält keine Bilder.</translation>
    </message>
</context>
<context>
    <name>ListQuestions</name>
    <message>
        <source>Are you sure you want to remove all the images from the list?</source>
        <translation>Sollen wirklich alle Bilder aus der Liste entfernt werden?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Add Images…</source>
        <translation>Bilder hinzufügen…</translation>
    </message>
    <message>
        <source>Add image files to the list; files can also be dropped onto it</source>
        <translation>Bilddateien zur Liste hinzufügen; Dateien können auch auf sie gezogen werden</translation>
    </message>
    <message>
        <source>Remove Selected</source>
        <translation>Auswahl entfernen</translation>
    </message>
    <message>
        <source>Remove All</source>
        <translation>Alle entfernen</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>The images to crop, one a row: name, size and whether its crop was adjusted</source>
        <translation>Die zuzuschneidenden Bilder, eines pro Zeile: Name, Größe und ob sein Zuschnitt angepasst wurde</translation>
    </message>
    <message>
        <source>The images to crop as a contact sheet, each with its crop marked</source>
        <translation>Die zuzuschneidenden Bilder als Kontaktabzug, jedes mit markiertem Zuschnitt</translation>
    </message>
    <message>
        <source>No images</source>
        <translation>Keine Bilder</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschnitt</translation>
    </message>
    <message>
        <source>Auto crop to the aspect ratio</source>
        <translation>Automatisch auf Seitenverhältnis zuschneiden</translation>
    </message>
    <message>
        <source>The largest rectangle of the ratio in each image, placed as chosen below</source>
        <translation>Das größte Rechteck des Seitenverhältnisses in jedem Bild, platziert wie unten gewählt</translation>
    </message>
    <message>
        <source>Aspect ratio</source>
        <translation>Seitenverhältnis</translation>
    </message>
    <message>
        <source>Custom crop</source>
        <translation>Eigener Zuschnitt</translation>
    </message>
    <message>
        <source>A rectangle given in pixels or in percents of each image</source>
        <translation>Ein Rechteck in Pixeln oder in Prozent jedes Bildes</translation>
    </message>
    <message>
        <source>In pixels</source>
        <translation>In Pixeln</translation>
    </message>
    <message>
        <source>Origin X:</source>
        <translation>Ursprung X:</translation>
    </message>
    <message>
        <source>Origin X in pixels</source>
        <translation>Ursprung X in Pixeln</translation>
    </message>
    <message>
        <source>Left edge of the crop, in pixels from the left</source>
        <translation>Linke Kante des Zuschnitts, in Pixeln von links</translation>
    </message>
    <message>
        <source>Origin Y:</source>
        <translation>Ursprung Y:</translation>
    </message>
    <message>
        <source>Origin Y in pixels</source>
        <translation>Ursprung Y in Pixeln</translation>
    </message>
    <message>
        <source>Lower edge of the crop, in pixels from the bottom</source>
        <translation>Untere Kante des Zuschnitts, in Pixeln von unten</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>Breite:</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Breite in Pixeln</translation>
    </message>
    <message>
        <source>Width of the crop, in pixels</source>
        <translation>Breite des Zuschnitts, in Pixeln</translation>
    </message>
    <message>
        <source>Height:</source>
        <translation>Höhe:</translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation>Höhe in Pixeln</translation>
    </message>
    <message>
        <source>Height of the crop, in pixels</source>
        <translation>Höhe des Zuschnitts, in Pixeln</translation>
    </message>
    <message>
        <source>In percents</source>
        <translation>In Prozent</translation>
    </message>
    <message>
        <source>Origin X in percent</source>
        <translation>Ursprung X in Prozent</translation>
    </message>
    <message>
        <source>Left edge of the crop, in percent of the image width</source>
        <translation>Linke Kante des Zuschnitts, in Prozent der Bildbreite</translation>
    </message>
    <message>
        <source>Origin X in percent, step</source>
        <translation>Ursprung X in Prozent, Schritt</translation>
    </message>
    <message>
        <source>Up and Down arrows change it by one percent</source>
        <translation>Die Pfeiltasten Auf und Ab ändern den Wert um ein Prozent</translation>
    </message>
    <message>
        <source>Origin Y in percent</source>
        <translation>Ursprung Y in Prozent</translation>
    </message>
    <message>
        <source>Lower edge of the crop, in percent of the image height</source>
        <translation>Untere Kante des Zuschnitts, in Prozent der Bildhöhe</translation>
    </message>
    <message>
        <source>Origin Y in percent, step</source>
        <translation>Ursprung Y in Prozent, Schritt</translation>
    </message>
    <message>
        <source>Width in percent</source>
        <translation>Breite in Prozent</translation>
    </message>
    <message>
        <source>Width of the crop, in percent of the image width</source>
        <translation>Breite des Zuschnitts, in Prozent der Bildbreite</translation>
    </message>
    <message>
        <source>Width in percent, step</source>
        <translation>Breite in Prozent, Schritt</translation>
    </message>
    <message>
        <source>Height in percent</source>
        <translation>Höhe in Prozent</translation>
    </message>
    <message>
        <source>Height of the crop, in percent of the image height</source>
        <translation>Höhe des Zuschnitts, in Prozent der Bildhöhe</translation>
    </message>
    <message>
        <source>Height in percent, step</source>
        <translation>Höhe in Prozent, Schritt</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Faces, trim, pad</source>
        <translation>Gesichter, Ränder, Auffüllen</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Quality:</source>
        <translation>Qualität:</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualität</translation>
    </message>
    <message>
        <source>Quality of JPEG and JPEG 2000 output</source>
        <translation>Qualität der JPEG- und JPEG-2000-Ausgabe</translation>
    </message>
    <message>
        <source>File name:</source>
        <translation>Dateiname:</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>The output&apos;s name; tokens in brackets, such as [FileName] or [FileIndex], are filled in for each image (the Tokens menu has them all)</source>
        <translation>Der Name der Ausgabe; Platzhalter in Klammern wie [FileName] oder [FileIndex] werden für jedes Bild ausgefüllt (das Menü „Platzhalter“ enthält sie alle)</translation>
    </message>
    <message>
        <source>Tokens: [FileName] [FileIndex] [Folder] [Ext] [Date] [Date:pattern] [Camera] [Width] [Height] [Ratio]; the Tokens menu says what each one is and puts it in</source>
        <translation>Platzhalter: [FileName] [FileIndex] [Folder] [Ext] [Date] [Date:pattern] [Camera] [Width] [Height] [Ratio]; das Menü „Platzhalter“ erklärt jeden und fügt ihn ein</translation>
    </message>
    <message>
        <source>[FileName], [FileIndex], [Date] and more: see the Tokens menu</source>
        <translation>[FileName], [FileIndex], [Date] und mehr: siehe Menü „Platzhalter“</translation>
    </message>
    <message>
        <source>Output folder:</source>
        <translation>Ausgabeordner:</translation>
    </message>
    <message>
        <source>Output folder</source>
        <translation>Ausgabeordner</translation>
    </message>
    <message>
        <source>The folder the cropped images go to</source>
        <translation>Der Ordner, in den die zugeschnittenen Bilder kommen</translation>
    </message>
    <message>
        <source>Browse…</source>
        <translation>Durchsuchen…</translation>
    </message>
    <message>
        <source>Keep EXIF information and creation date</source>
        <translation>EXIF-Informationen und Erstellungsdatum behalten</translation>
    </message>
    <message>
        <source>Resize after cropping:</source>
        <translation>Nach dem Zuschnitt skalieren:</translation>
    </message>
    <message>
        <source>Crop JPEG files without re-encoding (lossless)</source>
        <translation>JPEG-Dateien ohne Neukodierung zuschneiden (verlustfrei)</translation>
    </message>
    <message>
        <source>JPEG files are cut on their 8 or 16 pixel block grid instead of being decoded and encoded again: no quality is lost, and the rectangle may grow by up to a block at its left and top</source>
        <translation>JPEG-Dateien werden an ihrem Blockraster von 8 oder 16 Pixeln geschnitten, statt neu dekodiert und kodiert zu werden: Es geht keine Qualität verloren, und das Rechteck kann links und oben um bis zu einen Block wachsen</translation>
    </message>
    <message>
        <source>Replace the original files</source>
        <translation>Originaldateien ersetzen</translation>
    </message>
    <message>
        <source>Each image&apos;s crop replaces its own file, in its own format; the name, folder and format above are not used</source>
        <translation>Der Zuschnitt jedes Bildes ersetzt dessen eigene Datei, in ihrem eigenen Format; Name, Ordner und Format oben werden nicht verwendet</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Crop preview</source>
        <translation>Zuschnittvorschau</translation>
    </message>
    <message>
        <source>The selected image with its crop</source>
        <translation>Das ausgewählte Bild mit seinem Zuschnitt</translation>
    </message>
    <message>
        <source>Original:</source>
        <translation>Original:</translation>
    </message>
    <message>
        <source>Width: 0</source>
        <translation>Breite: 0</translation>
    </message>
    <message>
        <source>Height: 0</source>
        <translation>Höhe: 0</translation>
    </message>
    <message>
        <source>Output:</source>
        <translation>Ausgabe:</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Crop Images</source>
        <translation>Bilder zuschneiden</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop cropping (Esc): no new image begins, the images under way end without leaving a partial file</source>
        <translation>Zuschneiden anhalten (Esc): Kein neues Bild wird begonnen, die laufenden enden, ohne eine halbe Datei zu hinterlassen</translation>
    </message>
    <message>
        <source>Which image the crop job is at, and about how long the rest will take</source>
        <translation>Bei welchem Bild der Zuschnitt ist und wie lange der Rest etwa dauert</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Load Recent Profile</source>
        <translation>Zuletzt verwendetes Profil laden</translation>
    </message>
    <message>
        <source>Open Recent Crop Plan</source>
        <translation>Zuletzt verwendeten Zuschnittplan öffnen</translation>
    </message>
    <message>
        <source>&amp;Images</source>
        <translation>&amp;Bilder</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>B&amp;earbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Load Profile…</source>
        <translation>Profil laden…</translation>
    </message>
    <message>
        <source>Save Profile</source>
        <translation>Profil speichern</translation>
    </message>
    <message>
        <source>Save Profile As…</source>
        <translation>Profil speichern unter…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Open Crop Plan…</source>
        <translation>Zuschnittplan öffnen…</translation>
    </message>
    <message>
        <source>Save Crop Plan…</source>
        <translation>Zuschnittplan speichern…</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Reset Crop</source>
        <translation>Zuschnitt zurücksetzen</translation>
    </message>
    <message>
        <source>Reset All Crops</source>
        <translation>Alle Zuschnitte zurücksetzen</translation>
    </message>
    <message>
        <source>Show as List</source>
        <translation>Als Liste zeigen</translation>
    </message>
    <message>
        <source>Show the images as a list (Ctrl+1)</source>
        <translation>Die Bilder als Liste zeigen (Strg+1)</translation>
    </message>
    <message>
        <source>Show as Contact Sheet</source>
        <translation>Als Kontaktabzug zeigen</translation>
    </message>
    <message>
        <source>Show the images as a contact sheet of thumbnails with their crops (Ctrl+2)</source>
        <translation>Die Bilder als Kontaktabzug aus Miniaturen mit ihren Zuschnitten zeigen (Strg+2)</translation>
    </message>
    <message>
        <source>Video Tutorial</source>
        <translation>Video-Anleitung</translation>
    </message>
    <message>
        <source>About Vellumo</source>
        <translation>Über Vellumo</translation>
    </message>
    <message>
        <source>At most:</source>
        <translation>Höchstens:</translation>
    </message>
    <message>
        <source>Keep folder structure</source>
        <translation>Ordnerstruktur beibehalten</translation>
    </message>
    <message>
        <source>Each crop goes into the output folder&apos;s subfolder that matches the folder its image was found in</source>
        <translation>Jeder Zuschnitt kommt in den Unterordner des Ausgabeordners, der dem Ordner entspricht, in dem sein Bild gefunden wurde</translation>
    </message>
</context>
<context>
    <name>MessageBox</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>OpenFilesDialog</name>
    <message>
        <source>Images (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
</context>
<context>
    <name>OverwriteBox</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Yes to All</source>
        <translation>Ja, alle</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>No to All</source>
        <translation>Nein, keine</translation>
    </message>
    <message>
        <source>The file %1 already exists. Do you want to overwrite it?</source>
        <translation>Die Datei %1 existiert bereits. Möchten Sie sie überschreiben?</translation>
    </message>
</context>
<context>
    <name>PopUpChoices</name>
    <message>
        <source>Custom…</source>
        <translation>Eigenes…</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>1 image</source>
        <translation>1 Bild</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images</source>
        <translation>
            <numerusform>%L1 Bild</numerusform>
            <numerusform>%L1 Bilder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 would be written</source>
        <translation>
            <numerusform>%L1 würde geschrieben</numerusform>
            <numerusform>%L1 würden geschrieben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 written</source>
        <translation>
            <numerusform>%L1 geschrieben</numerusform>
            <numerusform>%L1 geschrieben</numerusform>
        </translation>
    </message>
    <message>
        <source>1 kept as it was</source>
        <translation>1 unverändert behalten</translation>
    </message>
    <message numerus="yes">
        <source>%L1 kept as they were</source>
        <translation>
            <numerusform>%L1 unverändert behalten</numerusform>
            <numerusform>%L1 unverändert behalten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 failed</source>
        <translation>
            <numerusform>%L1 fehlgeschlagen</numerusform>
            <numerusform>%L1 fehlgeschlagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 not cropped</source>
        <translation>
            <numerusform>%L1 nicht zugeschnitten</numerusform>
            <numerusform>%L1 nicht zugeschnitten</numerusform>
        </translation>
    </message>
    <message>
        <source>Cropping was stopped: %L1 of 1 image was written.</source>
        <translation>Das Zuschneiden wurde angehalten: %L1 von 1 Bild geschrieben.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>1 with a warning</source>
        <translation>1 mit Warnung</translation>
    </message>
    <message numerus="yes">
        <source>%L1 with warnings</source>
        <translation>
            <numerusform>%L1 mit Warnung</numerusform>
            <numerusform>%L1 mit Warnungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Cropping was stopped: %L1 of %L2 images were written.</source>
        <translation>
            <numerusform>Das Zuschneiden wurde angehalten: %L1 von %L2 Bild geschrieben.</numerusform>
            <numerusform>Das Zuschneiden wurde angehalten: %L1 von %L2 Bildern geschrieben.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveFileDialog</name>
    <message>
        <source>Vellumo profiles (*.%1)</source>
        <translation>Vellumo-Profile (*.%1)</translation>
    </message>
</context>
<context>
    <name>ThumbnailMaker</name>
    <message>
        <source>the file is missing</source>
        <translation>die Datei fehlt</translation>
    </message>
    <message>
        <source>the picture has no pixels</source>
        <translation>das Bild hat keine Pixel</translation>
    </message>
</context>
<context>
    <name>vellumo::AboutBox</name>
    <message>
        <source>About Vellumo</source>
        <translation>Über Vellumo</translation>
    </message>
    <message>
        <source>&lt;b&gt;Vellumo %1&lt;/b&gt;&lt;br&gt;Batch image cropping</source>
        <translation>&lt;b&gt;Vellumo %1&lt;/b&gt;&lt;br&gt;Bilder stapelweise zuschneiden</translation>
    </message>
    <message>
        <source>Asking the image worker about its sandbox…</source>
        <translation>Der Bildprozess wird nach seiner Sandbox gefragt…</translation>
    </message>
    <message>
        <source>Sandbox layers</source>
        <translation>Sandbox-Schichten</translation>
    </message>
    <message>
        <source>Refuse to decode images while a layer is missing (from the next start)</source>
        <translation>Keine Bilder dekodieren, solange eine Schicht fehlt (ab dem nächsten Start)</translation>
    </message>
    <message>
        <source>The image worker did not start: %1</source>
        <translation>Der Bildprozess ist nicht gestartet: %1</translation>
    </message>
    <message>
        <source>Images are decoded in a sandboxed worker: every layer is active.</source>
        <translation>Bilder werden in einem abgeschotteten Prozess dekodiert: Alle Schichten sind aktiv.</translation>
    </message>
    <message>
        <source>The image worker&apos;s sandbox is incomplete: %1 missing.</source>
        <translation>Die Sandbox des Bildprozesses ist unvollständig; es fehlt: %1.</translation>
    </message>
    <message>
        <source>active</source>
        <translation>aktiv</translation>
    </message>
    <message>
        <source>MISSING</source>
        <translation>FEHLT</translation>
    </message>
    <message>
        <source>not reported by the worker</source>
        <translation>vom Bildprozess nicht gemeldet</translation>
    </message>
</context>
<context>
    <name>vellumo::AutoCropRuleBox</name>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Match each image&apos;s orientation</source>
        <translation>Ausrichtung jedes Bildes übernehmen</translation>
    </message>
    <message>
        <source>Custom ratio width</source>
        <translation>Breite des eigenen Verhältnisses</translation>
    </message>
    <message>
        <source>Custom ratio height</source>
        <translation>Höhe des eigenen Verhältnisses</translation>
    </message>
    <message>
        <source>Turn the rectangle so that its longer side follows each image&apos;s longer side</source>
        <translation>Das Rechteck so drehen, dass seine längere Seite der längeren Seite jedes Bildes folgt</translation>
    </message>
    <message>
        <source>Custom ratio:</source>
        <translation>Eigenes Verhältnis:</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Blickfang</translation>
    </message>
    <message>
        <source>Where the eye goes: skin, saturated colour, edges</source>
        <translation>Wohin das Auge geht: Haut, satte Farben, Kanten</translation>
    </message>
    <message>
        <source>Entropy</source>
        <translation>Entropie</translation>
    </message>
    <message>
        <source>The busiest part of the picture</source>
        <translation>Der unruhigste Teil des Bildes</translation>
    </message>
    <message>
        <source>Position:</source>
        <translation>Position:</translation>
    </message>
    <message>
        <source>Faces</source>
        <translation>Gesichter</translation>
    </message>
    <message>
        <source>As many faces as fit, kept whole</source>
        <translation>So viele Gesichter wie passen, jedes ganz</translation>
    </message>
</context>
<context>
    <name>vellumo::CropAdjustmentStore</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Adjust Crop</source>
        <translation>Zuschnitt anpassen</translation>
    </message>
</context>
<context>
    <name>vellumo::CropPreviewView</name>
    <message>
        <source>No crop to show</source>
        <translation>Kein Zuschnitt zu zeigen</translation>
    </message>
    <message>
        <source>Crop %1 by %2 pixels at %3, %4 from the top left; arrow keys move it by one pixel, with Shift by ten</source>
        <translation>Zuschnitt %1 × %2 Pixel bei %3, %4 von oben links; die Pfeiltasten verschieben ihn um ein Pixel, mit Umschalt um zehn</translation>
    </message>
</context>
<context>
    <name>vellumo::ImageList</name>
    <message>
        <source>No images</source>
        <translation>Keine Bilder</translation>
    </message>
    <message>
        <source>1 image</source>
        <translation>1 Bild</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images</source>
        <translation>
            <numerusform>%L1 Bild</numerusform>
            <numerusform>%L1 Bilder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %L1 selected</source>
        <translation>
            <numerusform>, %L1 ausgewählt</numerusform>
            <numerusform>, %L1 ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot be shown: %1</source>
        <translation>Kann nicht angezeigt werden: %1</translation>
    </message>
    <message>
        <source>Crop adjusted by hand</source>
        <translation>Zuschnitt von Hand angepasst</translation>
    </message>
    <message>
        <source>, adjusted</source>
        <translation>, angepasst</translation>
    </message>
    <message>
        <source>, cannot be shown: %1</source>
        <translation>, kann nicht angezeigt werden: %1</translation>
    </message>
</context>
<context>
    <name>vellumo::NameTokenButton</name>
    <message>
        <source>the image&apos;s own name</source>
        <translation>der eigene Name des Bildes</translation>
    </message>
    <message>
        <source>its place in the list</source>
        <translation>seine Stelle in der Liste</translation>
    </message>
    <message>
        <source>the name of its folder</source>
        <translation>der Name seines Ordners</translation>
    </message>
    <message>
        <source>its extension</source>
        <translation>seine Dateiendung</translation>
    </message>
    <message>
        <source>the day it was taken</source>
        <translation>der Aufnahmetag</translation>
    </message>
    <message>
        <source>the day and time it was taken</source>
        <translation>Aufnahmetag und -uhrzeit</translation>
    </message>
    <message>
        <source>the camera&apos;s model</source>
        <translation>das Kameramodell</translation>
    </message>
    <message>
        <source>the output&apos;s width in pixels</source>
        <translation>die Breite der Ausgabe in Pixeln</translation>
    </message>
    <message>
        <source>the output&apos;s height in pixels</source>
        <translation>die Höhe der Ausgabe in Pixeln</translation>
    </message>
    <message>
        <source>the output&apos;s aspect ratio</source>
        <translation>das Seitenverhältnis der Ausgabe</translation>
    </message>
    <message>
        <source>Tokens</source>
        <translation>Platzhalter</translation>
    </message>
    <message>
        <source>Put a token into the name at the cursor</source>
        <translation>Einen Platzhalter an der Schreibmarke in den Namen einfügen</translation>
    </message>
    <message>
        <source>Name tokens</source>
        <translation>Platzhalter für den Namen</translation>
    </message>
</context>
<context>
    <name>vellumo::OutputNameText</name>
    <message>
        <source>Not a name: %1</source>
        <translation>Kein Name: %1</translation>
    </message>
    <message>
        <source>Becomes: %1</source>
        <translation>Wird zu: %1</translation>
    </message>
</context>
<context>
    <name>vellumo::PadRuleBox</name>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Rand</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Unschärfe</translation>
    </message>
    <message>
        <source>Transparent</source>
        <translation>Transparent</translation>
    </message>
    <message>
        <source>Pad to ratio</source>
        <translation>Auf Seitenverhältnis auffüllen</translation>
    </message>
    <message>
        <source>Pad ratio width</source>
        <translation>Breite des Auffüllverhältnisses</translation>
    </message>
    <message>
        <source>Pad ratio height</source>
        <translation>Höhe des Auffüllverhältnisses</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen…</translation>
    </message>
    <message>
        <source>Pad background</source>
        <translation>Hintergrund der Auffüllung</translation>
    </message>
    <message>
        <source>Pad colour</source>
        <translation>Füllfarbe</translation>
    </message>
    <message>
        <source>A colour name (white, black, grey…) or #rrggbb</source>
        <translation>Ein Farbname (white, black, grey…) oder #rrggbb</translation>
    </message>
    <message>
        <source>Choose pad colour</source>
        <translation>Füllfarbe wählen</translation>
    </message>
    <message>
        <source>Background:</source>
        <translation>Hintergrund:</translation>
    </message>
    <message>
        <source>Place the whole image, or what the trim leaves, on a canvas of this ratio instead of cutting it: the crop modes are turned off</source>
        <translation>Das ganze Bild oder das, was das Abschneiden übrig lässt, auf eine Fläche dieses Verhältnisses setzen, statt es zu beschneiden: die Zuschnittarten werden ausgeschaltet</translation>
    </message>
</context>
<context>
    <name>vellumo::PlanFiles</name>
    <message>
        <source>Save the crop adjustments before closing?</source>
        <translation>Die Zuschnittanpassungen vor dem Schließen speichern?</translation>
    </message>
    <message>
        <source>the file no longer exists</source>
        <translation>die Datei existiert nicht mehr</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Don&apos;t Save</source>
        <translation>Nicht speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save Crop Plan</source>
        <translation>Zuschnittplan speichern</translation>
    </message>
    <message>
        <source>The crop plan could not be saved to %1: %2.</source>
        <translation>Der Zuschnittplan konnte nicht unter %1 gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>Open Crop Plan</source>
        <translation>Zuschnittplan öffnen</translation>
    </message>
    <message>
        <source>The crop plan %1 could not be opened: %2.</source>
        <translation>Der Zuschnittplan %1 konnte nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>1 image of the crop plan no longer exists: %1</source>
        <translation>1 Bild des Zuschnittplans existiert nicht mehr: %1</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images of the crop plan no longer exist.</source>
        <translation>
            <numerusform>%L1 Bild des Zuschnittplans existiert nicht mehr.</numerusform>
            <numerusform>%L1 Bilder des Zuschnittplans existieren nicht mehr.</numerusform>
        </translation>
    </message>
    <message>
        <source>They stay in the list, marked, and fail when cropping.</source>
        <translation>Sie bleiben markiert in der Liste und scheitern beim Zuschneiden.</translation>
    </message>
</context>
<context>
    <name>vellumo::PortraitRuleBox</name>
    <message>
        <source>Head and shoulders</source>
        <translation>Kopf und Schultern</translation>
    </message>
    <message>
        <source>Face height</source>
        <translation>Gesichtshöhe</translation>
    </message>
    <message>
        <source>Eye line</source>
        <translation>Augenlinie</translation>
    </message>
    <message>
        <source>A portrait of the largest face in each image, of the chosen ratio</source>
        <translation>Ein Porträt des größten Gesichts jedes Bildes, im gewählten Verhältnis</translation>
    </message>
    <message>
        <source>The face&apos;s height, in percent of the output&apos;s height</source>
        <translation>Die Höhe des Gesichts, in Prozent der Höhe der Ausgabe</translation>
    </message>
    <message>
        <source>Where the eyes lie, in percent of the output&apos;s height from its top</source>
        <translation>Wo die Augen liegen, in Prozent der Höhe der Ausgabe von oben</translation>
    </message>
    <message>
        <source>Face height:</source>
        <translation>Gesichtshöhe:</translation>
    </message>
    <message>
        <source>Eye line:</source>
        <translation>Augenlinie:</translation>
    </message>
</context>
<context>
    <name>vellumo::ProfileFiles</name>
    <message>
        <source>The profile could not be saved to %1: %2.</source>
        <translation>Das Profil konnte nicht unter %1 gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>Save Profile</source>
        <translation>Profil speichern</translation>
    </message>
    <message>
        <source>Load Profile</source>
        <translation>Profil laden</translation>
    </message>
    <message>
        <source>The profile %1 could not be loaded: %2.</source>
        <translation>Das Profil %1 konnte nicht geladen werden: %2.</translation>
    </message>
</context>
<context>
    <name>vellumo::RecentFiles</name>
    <message>
        <source>No Recent Files</source>
        <translation>Keine zuletzt verwendeten Dateien</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>Menü leeren</translation>
    </message>
</context>
<context>
    <name>vellumo::ResizeRuleBox</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>To width</source>
        <translation>Auf Breite</translation>
    </message>
    <message>
        <source>To height</source>
        <translation>Auf Höhe</translation>
    </message>
    <message>
        <source>To fit within</source>
        <translation>Einpassen in</translation>
    </message>
    <message>
        <source>To exactly</source>
        <translation>Auf genau</translation>
    </message>
    <message>
        <source>Allow enlarging</source>
        <translation>Vergrößern erlauben</translation>
    </message>
    <message>
        <source>&quot;To exactly&quot; crops to the ratio width:height first, so nothing is distorted</source>
        <translation>„Auf genau“ schneidet zuerst auf das Verhältnis Breite:Höhe zu, damit nichts verzerrt wird</translation>
    </message>
    <message>
        <source>Resize after cropping</source>
        <translation>Nach dem Zuschnitt skalieren</translation>
    </message>
    <message>
        <source>Resize width</source>
        <translation>Zielbreite</translation>
    </message>
    <message>
        <source>Resize height</source>
        <translation>Zielhöhe</translation>
    </message>
    <message>
        <source>Without it, a crop smaller than the size keeps its own size</source>
        <translation>Ohne diese Option behält ein Zuschnitt, der kleiner als die Größe ist, seine eigene Größe</translation>
    </message>
</context>
<context>
    <name>vellumo::RuleClashNotice</name>
    <message>
        <source>Trimming finds the uniform borders of the whole image, and the auto-crop then works within what is left; a custom rectangle already says what is cut. Turn “Trim uniform borders” off, or choose the auto-crop.</source>
        <translation>Das Abschneiden findet die einfarbigen Ränder des ganzen Bildes, und der automatische Zuschnitt arbeitet dann innerhalb dessen, was übrig bleibt; ein eigenes Rechteck sagt bereits, was ausgeschnitten wird. Schalten Sie „Einfarbige Ränder abschneiden“ aus, oder wählen Sie den automatischen Zuschnitt.</translation>
    </message>
    <message>
        <source>Padding places the whole image, or what the trim leaves, on a canvas of its ratio, so it cannot follow the auto-crop or a custom rectangle, which cut the image. Turn “Pad to ratio” off, or tick it again to pad instead of cutting.</source>
        <translation>Das Auffüllen setzt das ganze Bild oder das, was das Abschneiden übrig lässt, auf eine Fläche seines Verhältnisses; es kann daher nicht auf den automatischen oder einen eigenen Zuschnitt folgen, die das Bild beschneiden. Schalten Sie „Auf Seitenverhältnis auffüllen“ aus, oder setzen Sie das Häkchen erneut, um aufzufüllen statt zuzuschneiden.</translation>
    </message>
    <message>
        <source>%1 files have no transparency: choose another background, or a format that keeps it (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF or BMP).</source>
        <translation>%1-Dateien haben keine Transparenz: Wählen Sie einen anderen Hintergrund oder ein Format, das sie behält (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF oder BMP).</translation>
    </message>
</context>
<context>
    <name>vellumo::SettingsPanel</name>
    <message>
        <source>Select Folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>Cropping...</source>
        <translation>Wird zugeschnitten...</translation>
    </message>
    <message>
        <source>Crop Images</source>
        <translation>Bilder zuschneiden</translation>
    </message>
    <message>
        <source>GIF and BMP files cannot carry EXIF information</source>
        <translation>GIF- und BMP-Dateien können keine EXIF-Informationen tragen</translation>
    </message>
    <message>
        <source>Vellumo writes only the colour profile into %1 files</source>
        <translation>Vellumo schreibt in %1-Dateien nur das Farbprofil</translation>
    </message>
    <message>
        <source> (lossless)</source>
        <translation> (verlustfrei)</translation>
    </message>
    <message>
        <source> (not for JPEG files: lossless)</source>
        <translation> (nicht für JPEG-Dateien: verlustfrei)</translation>
    </message>
    <message>
        <source> (not used: lossless)</source>
        <translation> (nicht verwendet: verlustfrei)</translation>
    </message>
</context>
<context>
    <name>vellumo::SizeLimitBox</name>
    <message>
        <source>bytes</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>KB</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>MB</translation>
    </message>
    <message>
        <source>Scale down to fit</source>
        <translation>Verkleinern, bis es passt</translation>
    </message>
    <message>
        <source>Largest file size</source>
        <translation>Größte Dateigröße</translation>
    </message>
    <message>
        <source>any size</source>
        <translation>beliebige Größe</translation>
    </message>
    <message>
        <source>Each file is written at the highest quality, up to the slider&apos;s, that keeps it within this size</source>
        <translation>Jede Datei wird in der höchsten Qualität bis zu der des Schiebereglers geschrieben, bei der sie diese Größe nicht überschreitet</translation>
    </message>
    <message>
        <source>Size unit</source>
        <translation>Größeneinheit</translation>
    </message>
    <message>
        <source>When even the lowest quality is too large, the picture is made smaller until it fits</source>
        <translation>Ist selbst die niedrigste Qualität zu groß, wird das Bild verkleinert, bis es passt</translation>
    </message>
</context>
<context>
    <name>vellumo::TrimRuleBox</name>
    <message>
        <source>Trim uniform borders</source>
        <translation>Einfarbige Ränder abschneiden</translation>
    </message>
    <message>
        <source>Cut away borders of the corners&apos; colour first; the crop is made within what is left</source>
        <translation>Zuerst Ränder in der Farbe der Ecken abschneiden; der Ausschnitt entsteht im Rest</translation>
    </message>
    <message>
        <source>Trim tolerance</source>
        <translation>Toleranz beim Abschneiden</translation>
    </message>
    <message>
        <source>How far a colour may be from the border&apos;s and still be cut, in percent of the full range (0 to 100)</source>
        <translation>Wie weit eine Farbe von der des Randes abweichen darf und doch abgeschnitten wird, in Prozent des ganzen Bereichs (0 bis 100)</translation>
    </message>
    <message>
        <source>Pixels of the border kept on each side</source>
        <translation>Pixel des Randes, die auf jeder Seite bleiben</translation>
    </message>
    <message>
        <source>Trim margin</source>
        <translation>Rand beim Abschneiden</translation>
    </message>
    <message>
        <source>Tolerance:</source>
        <translation>Toleranz:</translation>
    </message>
    <message>
        <source>Margin:</source>
        <translation>Rand:</translation>
    </message>
</context>
<context>
    <name>vellumo::ViewController</name>
    <message>
        <source>No web browser could be opened. The video tutorial is at %1</source>
        <translation>Es konnte kein Webbrowser geöffnet werden. Die Video-Anleitung ist unter %1</translation>
    </message>
    <message>
        <source>The images could not be loaded.</source>
        <translation>Die Bilder konnten nicht geladen werden.</translation>
    </message>
    <message>
        <source>Reset Crop</source>
        <translation>Zuschnitt zurücksetzen</translation>
    </message>
    <message>
        <source>Reset All Crops</source>
        <translation>Alle Zuschnitte zurücksetzen</translation>
    </message>
</context>
<context>
    <name>vellumo::WindowCropJob</name>
    <message>
        <source>Preparing…</source>
        <translation>Wird vorbereitet…</translation>
    </message>
    <message>
        <source>The output folder %1 is a file, not a folder.</source>
        <translation>Der Ausgabeordner %1 ist eine Datei, kein Ordner.</translation>
    </message>
    <message>
        <source>The folder %1 could not be created: %2.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden: %2.</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>Wird angehalten…</translation>
    </message>
    <message>
        <source>No file manager could be opened to show the folder %1.</source>
        <translation>Es konnte kein Dateimanager geöffnet werden, um den Ordner %1 zu zeigen.</translation>
    </message>
</context>
</TS>
