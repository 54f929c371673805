<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CropQuestions</name>
    <message>
        <source>The folder %1 does not exist. Create it?</source>
        <translation>Le dossier %1 n’existe pas. Le créer&#xa0;?</translation>
    </message>
    <message>
        <source>Replace the original files of the listed image by their crops? The originals cannot be restored.</source>
        <translation>Remplacer le fichier original de l’image listée par son recadrage&#xa0;? L’original ne pourra pas être restauré.</translation>
    </message>
    <message numerus="yes">
        <source>Replace the original files of the %L1 listed images by their crops? The originals cannot be restored.</source>
        <translation>
            <numerusform>Remplacer le fichier original de l’image listée (%L1) par son recadrage&#xa0;? L’original ne pourra pas être restauré.</numerusform>
            <numerusform>Remplacer les fichiers originaux des %L1 images listées par leurs recadrages&#xa0;? Les originaux ne pourront pas être restaurés.</numerusform>
        </translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Créer</translation>
    </message>
    <message>
        <source>Replace the Originals</source>
        <translation>Remplacer les originaux</translation>
    </message>
    <message>
        <source>Write Copies</source>
        <translation>Écrire des copies</translation>
    </message>
    <message>
        <source>Number the Clashing Files</source>
        <translation>Numéroter les fichiers en conflit</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>The crop rectangle leaves every image uncropped. Write uncropped copies?</source>
        <translation>Le rectangle de recadrage laisse chaque image intacte. Écrire des copies non recadrées&#xa0;?</translation>
    </message>
    <message numerus="yes">
        <source>… and %L1 more</source>
        <translation>
            <numerusform>… et %L1 autre</numerusform>
            <numerusform>… et %L1 autres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 images would be written to the same files, one over another:</source>
        <translation>
            <numerusform>%L1 image serait écrite dans le même fichier, l’une par-dessus l’autre&#xa0;:</numerusform>
            <numerusform>%L1 images seraient écrites dans les mêmes fichiers, l’une par-dessus l’autre&#xa0;:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CropResult</name>
    <message>
        <source>Not cropped: %1 (%2)</source>
        <translation>Non recadrée&#xa0;: %1 (%2)</translation>
    </message>
    <message>
        <source>Skipped: %1 (%2 already exists and was kept)</source>
        <translation>Ignorée&#xa0;: %1 (%2 existe déjà et a été conservé)</translation>
    </message>
    <message>
        <source>Metadata not kept: %1 (%2)</source>
        <translation>Métadonnées non conservées&#xa0;: %1 (%2)</translation>
    </message>
    <message>
        <source>Warning: %1 (%2)</source>
        <translation>Avertissement&#xa0;: %1 (%2)</translation>
    </message>
    <message>
        <source>Images cropped successfully.</source>
        <translation>Images recadrées avec succès.</translation>
    </message>
    <message>
        <source>Some images could not be cropped.</source>
        <translation>Certaines images n’ont pas pu être recadrées.</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
</context>
<context>
    <name>DesktopLaunch</name>
    <message>
        <source>Some items could not be added.</source>
        <translation>Certains éléments n’ont pas pu être ajoutés.</translation>
    </message>
</context>
<context>
    <name>DimensionText</name>
    <message>
        <source>Width: </source>
        <translation>Largeur&#xa0;: </translation>
    </message>
    <message>
        <source>Height: </source>
        <translation>Hauteur&#xa0;: </translation>
    </message>
</context>
<context>
    <name>Engine</name>
    <message>
        <source>cannot decode: %1</source>
        <translation>décodage impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>cannot crop: %1</source>
        <translation>recadrage impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>cannot write: %1</source>
        <translation>écriture impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>cannot carry metadata: %1</source>
        <translation>métadonnées non reprises&#xa0;: %1</translation>
    </message>
    <message>
        <source>; </source>
        <translation>&#xa0;; </translation>
    </message>
    <message>
        <source>attention placement could not be found; centred</source>
        <translation>placement par attention introuvable&#xa0;; centré</translation>
    </message>
    <message>
        <source>entropy placement could not be found; centred</source>
        <translation>placement par entropie introuvable&#xa0;; centré</translation>
    </message>
    <message>
        <source>Clipped to %1 × %2</source>
        <translation>Rogné à %1 × %2</translation>
    </message>
    <message>
        <source>Whole image: neither pixels nor percents are chosen</source>
        <translation>Image entière&#xa0;: ni pixels ni pourcentages choisis</translation>
    </message>
    <message>
        <source>Whole image: the rectangle is empty</source>
        <translation>Image entière&#xa0;: le rectangle est vide</translation>
    </message>
    <message>
        <source>Whole image: the rectangle lies outside this image</source>
        <translation>Image entière&#xa0;: le rectangle est hors de cette image</translation>
    </message>
    <message>
        <source>Whole image: less than a pixel of the rectangle lies on this image</source>
        <translation>Image entière&#xa0;: moins d’un pixel du rectangle est sur cette image</translation>
    </message>
    <message>
        <source>Whole image: nothing but background to trim</source>
        <translation>Image entière&#xa0;: rien que du fond à rogner</translation>
    </message>
    <message>
        <source>first frame only (of %1)</source>
        <translation>première image seulement (sur %1)</translation>
    </message>
    <message>
        <source>faces were not looked for; placed by attention</source>
        <translation>visages non recherchés&#xa0;; placé par attention</translation>
    </message>
    <message>
        <source>faces were not looked for; centred</source>
        <translation>visages non recherchés&#xa0;; centré</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1; placed by attention</source>
        <translation>les visages n’ont pas pu être recherchés&#xa0;: %1&#xa0;; placé par attention</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1; centred</source>
        <translation>les visages n’ont pas pu être recherchés&#xa0;: %1&#xa0;; centré</translation>
    </message>
    <message>
        <source>no face found; placed by attention</source>
        <translation>aucun visage trouvé&#xa0;; placé par attention</translation>
    </message>
    <message>
        <source>no face found; centred</source>
        <translation>aucun visage trouvé&#xa0;; centré</translation>
    </message>
    <message>
        <source>the portrait needs a face, and none was looked for</source>
        <translation>le portrait a besoin d’un visage, et aucun n’a été recherché</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1</source>
        <translation>les visages n’ont pas pu être recherchés&#xa0;: %1</translation>
    </message>
    <message>
        <source>no face found for the portrait</source>
        <translation>aucun visage trouvé pour le portrait</translation>
    </message>
    <message>
        <source>the face is too near the image&apos;s edges for the portrait as asked; made smaller and moved onto the image</source>
        <translation>le visage est trop près des bords de l’image pour le portrait demandé&#xa0;; réduit et ramené sur l’image</translation>
    </message>
    <message>
        <source>the face is too near the image&apos;s edge for the portrait as asked; moved onto the image</source>
        <translation>le visage est trop près du bord de l’image pour le portrait demandé&#xa0;; ramené sur l’image</translation>
    </message>
    <message>
        <source>made smaller to %1 × %2 to fit %3</source>
        <translation>réduit à %1 × %2 pour tenir dans %3</translation>
    </message>
    <message>
        <source>the file is not an image Vellumo can read</source>
        <translation>le fichier n’est pas une image que Vellumo sait lire</translation>
    </message>
    <message>
        <source>the image&apos;s size cannot be read</source>
        <translation>la taille de l’image ne peut pas être lue</translation>
    </message>
    <message>
        <source>Lossless: widened to the file&apos;s %1 × %2 blocks</source>
        <translation>Sans perte&#xa0;: élargi aux blocs de %1 × %2 du fichier</translation>
    </message>
    <message>
        <source>%1 column at the left edge left out (a partial block)</source>
        <translation>%1 colonne au bord gauche laissée de côté (un bloc partiel)</translation>
    </message>
    <message>
        <source>%1 columns at the left edge left out (a partial block)</source>
        <translation>%1 colonnes au bord gauche laissées de côté (un bloc partiel)</translation>
    </message>
    <message>
        <source>%1 row at the top edge left out (a partial block)</source>
        <translation>%1 ligne au bord supérieur laissée de côté (un bloc partiel)</translation>
    </message>
    <message>
        <source>%1 rows at the top edge left out (a partial block)</source>
        <translation>%1 lignes au bord supérieur laissées de côté (un bloc partiel)</translation>
    </message>
    <message>
        <source>Re-encoded: this JPEG cannot be cropped without re-encoding</source>
        <translation>Réencodé&#xa0;: ce JPEG ne peut pas être recadré sans réencodage</translation>
    </message>
    <message>
        <source>Re-encoded: a resized crop cannot be lossless</source>
        <translation>Réencodé&#xa0;: un recadrage redimensionné ne peut pas être sans perte</translation>
    </message>
    <message>
        <source>Re-encoded: a padded picture cannot be lossless</source>
        <translation>Réencodé&#xa0;: une image complétée ne peut pas être sans perte</translation>
    </message>
    <message>
        <source>Re-encoded: the rectangle holds no whole block of the file</source>
        <translation>Réencodé&#xa0;: le rectangle ne contient aucun bloc entier du fichier</translation>
    </message>
    <message>
        <source>%1 has no value: left empty in the name</source>
        <translation>%1 n’a pas de valeur&#xa0;: laissé vide dans le nom</translation>
    </message>
    <message>
        <source>%1 have no value: left empty in the name</source>
        <translation>%1 n’ont pas de valeur&#xa0;: laissés vides dans le nom</translation>
    </message>
    <message>
        <source>not enlarged: the crop is %1 × %2</source>
        <translation>non agrandi&#xa0;: le recadrage fait %1 × %2</translation>
    </message>
    <message>
        <source>The name template cannot be used: %1.</source>
        <translation>Le modèle de nom ne peut pas être utilisé&#xa0;: %1.</translation>
    </message>
    <message>
        <source>There are no images to crop.</source>
        <translation>Il n’y a aucune image à recadrer.</translation>
    </message>
    <message>
        <source>Please select an output folder.</source>
        <translation>Veuillez choisir un dossier de sortie.</translation>
    </message>
</context>
<context>
    <name>JobStatusText</name>
    <message>
        <source>about %L1 s left</source>
        <translation>encore environ %L1 s</translation>
    </message>
    <message>
        <source>about %L1 min left</source>
        <translation>encore environ %L1 min</translation>
    </message>
    <message>
        <source>Cropping %L1 of %L2</source>
        <translation>Recadrage %L1 sur %L2</translation>
    </message>
</context>
<context>
    <name>LaunchArguments</name>
    <message>
        <source>“%1” does not exist.</source>
        <translation>«&#xa0;%1&#xa0;» n’existe pas.</translation>
    </message>
    <message>
        <source>“%1” holds no images.</source>
        <translation>«&#xa0;%1&#xa0;» ne contient aucune image.</translation>
    </message>
</context>
<context>
    <name>ListQuestions</name>
    <message>
        <source>Are you sure you want to remove all the images from the list?</source>
        <translation>Voulez-vous vraiment retirer toutes les images de la liste&#xa0;?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Add Images…</source>
        <translation>Ajouter des images…</translation>
    </message>
    <message>
        <source>Add image files to the list; files can also be dropped onto it</source>
        <translation>Ajouter des fichiers image à la liste&#xa0;; on peut aussi y déposer des fichiers</translation>
    </message>
    <message>
        <source>Remove Selected</source>
        <translation>Retirer la sélection</translation>
    </message>
    <message>
        <source>Remove All</source>
        <translation>Tout retirer</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>The images to crop, one a row: name, size and whether its crop was adjusted</source>
        <translation>Les images à recadrer, une par ligne&#xa0;: nom, taille et si son recadrage a été ajusté</translation>
    </message>
    <message>
        <source>The images to crop as a contact sheet, each with its crop marked</source>
        <translation>Les images à recadrer en planche contact, chacune avec son recadrage marqué</translation>
    </message>
    <message>
        <source>No images</source>
        <translation>Aucune image</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recadrage</translation>
    </message>
    <message>
        <source>Auto crop to the aspect ratio</source>
        <translation>Recadrage automatique aux proportions</translation>
    </message>
    <message>
        <source>The largest rectangle of the ratio in each image, placed as chosen below</source>
        <translation>Le plus grand rectangle de ces proportions dans chaque image, placé comme choisi ci-dessous</translation>
    </message>
    <message>
        <source>Aspect ratio</source>
        <translation>Proportions</translation>
    </message>
    <message>
        <source>Custom crop</source>
        <translation>Recadrage personnalisé</translation>
    </message>
    <message>
        <source>A rectangle given in pixels or in percents of each image</source>
        <translation>Un rectangle donné en pixels ou en pourcentage de chaque image</translation>
    </message>
    <message>
        <source>In pixels</source>
        <translation>En pixels</translation>
    </message>
    <message>
        <source>Origin X:</source>
        <translation>Origine X&#xa0;:</translation>
    </message>
    <message>
        <source>Origin X in pixels</source>
        <translation>Origine X en pixels</translation>
    </message>
    <message>
        <source>Left edge of the crop, in pixels from the left</source>
        <translation>Bord gauche du recadrage, en pixels depuis la gauche</translation>
    </message>
    <message>
        <source>Origin Y:</source>
        <translation>Origine Y&#xa0;:</translation>
    </message>
    <message>
        <source>Origin Y in pixels</source>
        <translation>Origine Y en pixels</translation>
    </message>
    <message>
        <source>Lower edge of the crop, in pixels from the bottom</source>
        <translation>Bord inférieur du recadrage, en pixels depuis le bas</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>Largeur&#xa0;:</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Largeur en pixels</translation>
    </message>
    <message>
        <source>Width of the crop, in pixels</source>
        <translation>Largeur du recadrage, en pixels</translation>
    </message>
    <message>
        <source>Height:</source>
        <translation>Hauteur&#xa0;:</translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation>Hauteur en pixels</translation>
    </message>
    <message>
        <source>Height of the crop, in pixels</source>
        <translation>Hauteur du recadrage, en pixels</translation>
    </message>
    <message>
        <source>In percents</source>
        <translation>En pourcentage</translation>
    </message>
    <message>
        <source>Origin X in percent</source>
        <translation>Origine X en pourcentage</translation>
    </message>
    <message>
        <source>Left edge of the crop, in percent of the image width</source>
        <translation>Bord gauche du recadrage, en pourcentage de la largeur de l’image</translation>
    </message>
    <message>
        <source>Origin X in percent, step</source>
        <translation>Origine X en pourcentage, pas</translation>
    </message>
    <message>
        <source>Up and Down arrows change it by one percent</source>
        <translation>Les flèches Haut et Bas le modifient d’un pour cent</translation>
    </message>
    <message>
        <source>Origin Y in percent</source>
        <translation>Origine Y en pourcentage</translation>
    </message>
    <message>
        <source>Lower edge of the crop, in percent of the image height</source>
        <translation>Bord inférieur du recadrage, en pourcentage de la hauteur de l’image</translation>
    </message>
    <message>
        <source>Origin Y in percent, step</source>
        <translation>Origine Y en pourcentage, pas</translation>
    </message>
    <message>
        <source>Width in percent</source>
        <translation>Largeur en pourcentage</translation>
    </message>
    <message>
        <source>Width of the crop, in percent of the image width</source>
        <translation>Largeur du recadrage, en pourcentage de la largeur de l’image</translation>
    </message>
    <message>
        <source>Width in percent, step</source>
        <translation>Largeur en pourcentage, pas</translation>
    </message>
    <message>
        <source>Height in percent</source>
        <translation>Hauteur en pourcentage</translation>
    </message>
    <message>
        <source>Height of the crop, in percent of the image height</source>
        <translation>Hauteur du recadrage, en pourcentage de la hauteur de l’image</translation>
    </message>
    <message>
        <source>Height in percent, step</source>
        <translation>Hauteur en pourcentage, pas</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Sortie</translation>
    </message>
    <message>
        <source>Faces, trim, pad</source>
        <translation>Visages, rognage, marges</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Format&#xa0;:</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Quality:</source>
        <translation>Qualité&#xa0;:</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualité</translation>
    </message>
    <message>
        <source>Quality of JPEG and JPEG 2000 output</source>
        <translation>Qualité de la sortie JPEG et JPEG 2000</translation>
    </message>
    <message>
        <source>File name:</source>
        <translation>Nom de fichier&#xa0;:</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>Nom de fichier</translation>
    </message>
    <message>
        <source>The output&apos;s name; tokens in brackets, such as [FileName] or [FileIndex], are filled in for each image (the Tokens menu has them all)</source>
        <translation>Le nom de la sortie&#xa0;; les jetons entre crochets, comme [FileName] ou [FileIndex], sont remplis pour chaque image (le menu «&#xa0;Jetons&#xa0;» les contient tous)</translation>
    </message>
    <message>
        <source>Tokens: [FileName] [FileIndex] [Folder] [Ext] [Date] [Date:pattern] [Camera] [Width] [Height] [Ratio]; the Tokens menu says what each one is and puts it in</source>
        <translation>Jetons&#xa0;: [FileName] [FileIndex] [Folder] [Ext] [Date] [Date:pattern] [Camera] [Width] [Height] [Ratio]&#xa0;; le menu «&#xa0;Jetons&#xa0;» explique chacun et l’insère</translation>
    </message>
    <message>
        <source>[FileName], [FileIndex], [Date] and more: see the Tokens menu</source>
        <translation>[FileName], [FileIndex], [Date] et d’autres&#xa0;: voir le menu «&#xa0;Jetons&#xa0;»</translation>
    </message>
    <message>
        <source>Output folder:</source>
        <translation>Dossier de sortie&#xa0;:</translation>
    </message>
    <message>
        <source>Output folder</source>
        <translation>Dossier de sortie</translation>
    </message>
    <message>
        <source>The folder the cropped images go to</source>
        <translation>Le dossier où vont les images recadrées</translation>
    </message>
    <message>
        <source>Browse…</source>
        <translation>Parcourir…</translation>
    </message>
    <message>
        <source>Keep EXIF information and creation date</source>
        <translation>Conserver les informations EXIF et la date de création</translation>
    </message>
    <message>
        <source>Resize after cropping:</source>
        <translation>Redimensionner après recadrage&#xa0;:</translation>
    </message>
    <message>
        <source>Crop JPEG files without re-encoding (lossless)</source>
        <translation>Recadrer les fichiers JPEG sans réencodage (sans perte)</translation>
    </message>
    <message>
        <source>JPEG files are cut on their 8 or 16 pixel block grid instead of being decoded and encoded again: no quality is lost, and the rectangle may grow by up to a block at its left and top</source>
        <translation>Les fichiers JPEG sont coupés sur leur grille de blocs de 8 ou 16 pixels au lieu d’être décodés puis réencodés&#xa0;: aucune qualité n’est perdue, et le rectangle peut s’agrandir d’un bloc au plus à gauche et en haut</translation>
    </message>
    <message>
        <source>Replace the original files</source>
        <translation>Remplacer les fichiers originaux</translation>
    </message>
    <message>
        <source>Each image&apos;s crop replaces its own file, in its own format; the name, folder and format above are not used</source>
        <translation>Le recadrage de chaque image remplace son propre fichier, dans son propre format&#xa0;; le nom, le dossier et le format ci-dessus ne sont pas utilisés</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Crop preview</source>
        <translation>Aperçu du recadrage</translation>
    </message>
    <message>
        <source>The selected image with its crop</source>
        <translation>L’image sélectionnée avec son recadrage</translation>
    </message>
    <message>
        <source>Original:</source>
        <translation>Original&#xa0;:</translation>
    </message>
    <message>
        <source>Width: 0</source>
        <translation>Largeur&#xa0;: 0</translation>
    </message>
    <message>
        <source>Height: 0</source>
        <translation>Hauteur&#xa0;: 0</translation>
    </message>
    <message>
        <source>Output:</source>
        <translation>Sortie&#xa0;:</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Crop Images</source>
        <translation>Recadrer les images</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stop cropping (Esc): no new image begins, the images under way end without leaving a partial file</source>
        <translation>Arrêter le recadrage (Échap)&#xa0;: aucune nouvelle image ne commence, celles en cours se terminent sans laisser de fichier partiel</translation>
    </message>
    <message>
        <source>Which image the crop job is at, and about how long the rest will take</source>
        <translation>L’image où en est le recadrage, et le temps qu’il reste environ</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>Load Recent Profile</source>
        <translation>Charger un profil récent</translation>
    </message>
    <message>
        <source>Open Recent Crop Plan</source>
        <translation>Ouvrir un plan de recadrage récent</translation>
    </message>
    <message>
        <source>&amp;Images</source>
        <translation>&amp;Images</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Édition</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Affic&amp;hage</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nouveau</translation>
    </message>
    <message>
        <source>Load Profile…</source>
        <translation>Charger un profil…</translation>
    </message>
    <message>
        <source>Save Profile</source>
        <translation>Enregistrer le profil</translation>
    </message>
    <message>
        <source>Save Profile As…</source>
        <translation>Enregistrer le profil sous…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Open Crop Plan…</source>
        <translation>Ouvrir un plan de recadrage…</translation>
    </message>
    <message>
        <source>Save Crop Plan…</source>
        <translation>Enregistrer le plan de recadrage…</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>Reset Crop</source>
        <translation>Réinitialiser le recadrage</translation>
    </message>
    <message>
        <source>Reset All Crops</source>
        <translation>Réinitialiser tous les recadrages</translation>
    </message>
    <message>
        <source>Show as List</source>
        <translation>Afficher en liste</translation>
    </message>
    <message>
        <source>Show the images as a list (Ctrl+1)</source>
        <translation>Afficher les images en liste (Ctrl+1)</translation>
    </message>
    <message>
        <source>Show as Contact Sheet</source>
        <translation>Afficher en planche contact</translation>
    </message>
    <message>
        <source>Show the images as a contact sheet of thumbnails with their crops (Ctrl+2)</source>
        <translation>Afficher les images en planche contact de vignettes avec leurs recadrages (Ctrl+2)</translation>
    </message>
    <message>
        <source>Video Tutorial</source>
        <translation>Tutoriel vidéo</translation>
    </message>
    <message>
        <source>About Vellumo</source>
        <translation>À propos de Vellumo</translation>
    </message>
    <message>
        <source>At most:</source>
        <translation>Au plus&#xa0;:</translation>
    </message>
    <message>
        <source>Keep folder structure</source>
        <translation>Conserver l&apos;arborescence des dossiers</translation>
    </message>
    <message>
        <source>Each crop goes into the output folder&apos;s subfolder that matches the folder its image was found in</source>
        <translation>Chaque recadrage va dans le sous-dossier du dossier de sortie qui correspond au dossier où son image a été trouvée</translation>
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
        <translation>Images (%1)</translation>
    </message>
</context>
<context>
    <name>OverwriteBox</name>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>Yes to All</source>
        <translation>Oui pour tout</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>No to All</source>
        <translation>Non pour tout</translation>
    </message>
    <message>
        <source>The file %1 already exists. Do you want to overwrite it?</source>
        <translation>Le fichier %1 existe déjà. Voulez-vous le remplacer&#xa0;?</translation>
    </message>
</context>
<context>
    <name>PopUpChoices</name>
    <message>
        <source>Custom…</source>
        <translation>Personnalisé…</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>1 image</source>
        <translation>1 image</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images</source>
        <translation>
            <numerusform>%L1 image</numerusform>
            <numerusform>%L1 images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 would be written</source>
        <translation>
            <numerusform>%L1 serait écrite</numerusform>
            <numerusform>%L1 seraient écrites</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 written</source>
        <translation>
            <numerusform>%L1 écrite</numerusform>
            <numerusform>%L1 écrites</numerusform>
        </translation>
    </message>
    <message>
        <source>1 kept as it was</source>
        <translation>1 conservée telle quelle</translation>
    </message>
    <message numerus="yes">
        <source>%L1 kept as they were</source>
        <translation>
            <numerusform>%L1 conservée telle quelle</numerusform>
            <numerusform>%L1 conservées telles quelles</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 failed</source>
        <translation>
            <numerusform>%L1 en échec</numerusform>
            <numerusform>%L1 en échec</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 not cropped</source>
        <translation>
            <numerusform>%L1 non recadrée</numerusform>
            <numerusform>%L1 non recadrées</numerusform>
        </translation>
    </message>
    <message>
        <source>Cropping was stopped: %L1 of 1 image was written.</source>
        <translation>Le recadrage a été arrêté&#xa0;: %L1 sur 1 image écrite.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1&#xa0;; %2</translation>
    </message>
    <message>
        <source>1 with a warning</source>
        <translation>1 avec un avertissement</translation>
    </message>
    <message numerus="yes">
        <source>%L1 with warnings</source>
        <translation>
            <numerusform>%L1 avec un avertissement</numerusform>
            <numerusform>%L1 avec des avertissements</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Cropping was stopped: %L1 of %L2 images were written.</source>
        <translation>
            <numerusform>Le recadrage a été arrêté&#xa0;: %L1 sur %L2 image écrite.</numerusform>
            <numerusform>Le recadrage a été arrêté&#xa0;: %L1 sur %L2 images écrites.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveFileDialog</name>
    <message>
        <source>Vellumo profiles (*.%1)</source>
        <translation>Profils Vellumo (*.%1)</translation>
    </message>
</context>
<context>
    <name>ThumbnailMaker</name>
    <message>
        <source>the file is missing</source>
        <translation>le fichier est introuvable</translation>
    </message>
    <message>
        <source>the picture has no pixels</source>
        <translation>l’image n’a aucun pixel</translation>
    </message>
</context>
<context>
    <name>vellumo::AboutBox</name>
    <message>
        <source>About Vellumo</source>
        <translation>À propos de Vellumo</translation>
    </message>
    <message>
        <source>&lt;b&gt;Vellumo %1&lt;/b&gt;&lt;br&gt;Batch image cropping</source>
        <translation>&lt;b&gt;Vellumo %1&lt;/b&gt;&lt;br&gt;Recadrage d’images par lots</translation>
    </message>
    <message>
        <source>Asking the image worker about its sandbox…</source>
        <translation>Interrogation du processus de décodage sur son bac à sable…</translation>
    </message>
    <message>
        <source>Sandbox layers</source>
        <translation>Couches du bac à sable</translation>
    </message>
    <message>
        <source>Refuse to decode images while a layer is missing (from the next start)</source>
        <translation>Refuser de décoder les images tant qu’une couche manque (dès le prochain démarrage)</translation>
    </message>
    <message>
        <source>The image worker did not start: %1</source>
        <translation>Le processus de décodage n’a pas démarré&#xa0;: %1</translation>
    </message>
    <message>
        <source>Images are decoded in a sandboxed worker: every layer is active.</source>
        <translation>Les images sont décodées dans un processus isolé&#xa0;: toutes les couches sont actives.</translation>
    </message>
    <message>
        <source>The image worker&apos;s sandbox is incomplete: %1 missing.</source>
        <translation>Le bac à sable du processus de décodage est incomplet&#xa0;; il manque&#xa0;: %1.</translation>
    </message>
    <message>
        <source>active</source>
        <translation>actif</translation>
    </message>
    <message>
        <source>MISSING</source>
        <translation>ABSENT</translation>
    </message>
    <message>
        <source>not reported by the worker</source>
        <translation>non signalé par le processus de décodage</translation>
    </message>
</context>
<context>
    <name>vellumo::AutoCropRuleBox</name>
    <message>
        <source>Top left</source>
        <translation>En haut à gauche</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>En haut</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>En haut à droite</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>À gauche</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Au centre</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>À droite</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>En bas à gauche</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>En bas</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>En bas à droite</translation>
    </message>
    <message>
        <source>Match each image&apos;s orientation</source>
        <translation>Suivre l’orientation de chaque image</translation>
    </message>
    <message>
        <source>Custom ratio width</source>
        <translation>Largeur des proportions personnalisées</translation>
    </message>
    <message>
        <source>Custom ratio height</source>
        <translation>Hauteur des proportions personnalisées</translation>
    </message>
    <message>
        <source>Turn the rectangle so that its longer side follows each image&apos;s longer side</source>
        <translation>Tourner le rectangle pour que son grand côté suive le grand côté de chaque image</translation>
    </message>
    <message>
        <source>Custom ratio:</source>
        <translation>Proportions&#xa0;:</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>Where the eye goes: skin, saturated colour, edges</source>
        <translation>Là où va le regard&#xa0;: peau, couleurs saturées, contours</translation>
    </message>
    <message>
        <source>Entropy</source>
        <translation>Entropie</translation>
    </message>
    <message>
        <source>The busiest part of the picture</source>
        <translation>La partie la plus chargée de l’image</translation>
    </message>
    <message>
        <source>Position:</source>
        <translation>Position&#xa0;:</translation>
    </message>
    <message>
        <source>Faces</source>
        <translation>Visages</translation>
    </message>
    <message>
        <source>As many faces as fit, kept whole</source>
        <translation>Autant de visages qu’il en tient, chacun entier</translation>
    </message>
</context>
<context>
    <name>vellumo::CropAdjustmentStore</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Annuler&#xa0;: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Rétablir&#xa0;: %1</translation>
    </message>
    <message>
        <source>Adjust Crop</source>
        <translation>Ajuster le recadrage</translation>
    </message>
</context>
<context>
    <name>vellumo::CropPreviewView</name>
    <message>
        <source>No crop to show</source>
        <translation>Aucun recadrage à afficher</translation>
    </message>
    <message>
        <source>Crop %1 by %2 pixels at %3, %4 from the top left; arrow keys move it by one pixel, with Shift by ten</source>
        <translation>Recadrage de %1 sur %2 pixels à %3, %4 depuis le coin supérieur gauche&#xa0;; les flèches le déplacent d’un pixel, avec Maj de dix</translation>
    </message>
</context>
<context>
    <name>vellumo::ImageList</name>
    <message>
        <source>No images</source>
        <translation>Aucune image</translation>
    </message>
    <message>
        <source>1 image</source>
        <translation>1 image</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images</source>
        <translation>
            <numerusform>%L1 image</numerusform>
            <numerusform>%L1 images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %L1 selected</source>
        <translation>
            <numerusform>, %L1 sélectionnée</numerusform>
            <numerusform>, %L1 sélectionnées</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot be shown: %1</source>
        <translation>Impossible à afficher&#xa0;: %1</translation>
    </message>
    <message>
        <source>Crop adjusted by hand</source>
        <translation>Recadrage ajusté à la main</translation>
    </message>
    <message>
        <source>, adjusted</source>
        <translation>, ajustée</translation>
    </message>
    <message>
        <source>, cannot be shown: %1</source>
        <translation>, impossible à afficher&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>vellumo::NameTokenButton</name>
    <message>
        <source>the image&apos;s own name</source>
        <translation>le nom propre de l&apos;image</translation>
    </message>
    <message>
        <source>its place in the list</source>
        <translation>sa place dans la liste</translation>
    </message>
    <message>
        <source>the name of its folder</source>
        <translation>le nom de son dossier</translation>
    </message>
    <message>
        <source>its extension</source>
        <translation>son extension</translation>
    </message>
    <message>
        <source>the day it was taken</source>
        <translation>le jour de la prise de vue</translation>
    </message>
    <message>
        <source>the day and time it was taken</source>
        <translation>le jour et l&apos;heure de la prise de vue</translation>
    </message>
    <message>
        <source>the camera&apos;s model</source>
        <translation>le modèle de l&apos;appareil photo</translation>
    </message>
    <message>
        <source>the output&apos;s width in pixels</source>
        <translation>la largeur de la sortie en pixels</translation>
    </message>
    <message>
        <source>the output&apos;s height in pixels</source>
        <translation>la hauteur de la sortie en pixels</translation>
    </message>
    <message>
        <source>the output&apos;s aspect ratio</source>
        <translation>les proportions de la sortie</translation>
    </message>
    <message>
        <source>Tokens</source>
        <translation>Jetons</translation>
    </message>
    <message>
        <source>Put a token into the name at the cursor</source>
        <translation>Insérer un jeton dans le nom à l&apos;emplacement du curseur</translation>
    </message>
    <message>
        <source>Name tokens</source>
        <translation>Jetons du nom</translation>
    </message>
</context>
<context>
    <name>vellumo::OutputNameText</name>
    <message>
        <source>Not a name: %1</source>
        <translation>Pas un nom&#xa0;: %1</translation>
    </message>
    <message>
        <source>Becomes: %1</source>
        <translation>Devient&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>vellumo::PadRuleBox</name>
    <message>
        <source>Colour</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Bord</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Flou</translation>
    </message>
    <message>
        <source>Transparent</source>
        <translation>Transparent</translation>
    </message>
    <message>
        <source>Pad to ratio</source>
        <translation>Compléter au rapport</translation>
    </message>
    <message>
        <source>Pad ratio width</source>
        <translation>Largeur du rapport de complément</translation>
    </message>
    <message>
        <source>Pad ratio height</source>
        <translation>Hauteur du rapport de complément</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Choisir…</translation>
    </message>
    <message>
        <source>Pad background</source>
        <translation>Fond du complément</translation>
    </message>
    <message>
        <source>Pad colour</source>
        <translation>Couleur de complément</translation>
    </message>
    <message>
        <source>A colour name (white, black, grey…) or #rrggbb</source>
        <translation>Un nom de couleur (white, black, grey…) ou #rrggbb</translation>
    </message>
    <message>
        <source>Choose pad colour</source>
        <translation>Choisir la couleur de complément</translation>
    </message>
    <message>
        <source>Background:</source>
        <translation>Fond&#xa0;:</translation>
    </message>
    <message>
        <source>Place the whole image, or what the trim leaves, on a canvas of this ratio instead of cutting it: the crop modes are turned off</source>
        <translation>Placer l’image entière, ou ce que le rognage en laisse, sur un fond de ce rapport au lieu de la recadrer&#xa0;: les modes de recadrage sont désactivés</translation>
    </message>
</context>
<context>
    <name>vellumo::PlanFiles</name>
    <message>
        <source>Save the crop adjustments before closing?</source>
        <translation>Enregistrer les ajustements de recadrage avant de fermer&#xa0;?</translation>
    </message>
    <message>
        <source>the file no longer exists</source>
        <translation>le fichier n’existe plus</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Don&apos;t Save</source>
        <translation>Ne pas enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Save Crop Plan</source>
        <translation>Enregistrer le plan de recadrage</translation>
    </message>
    <message>
        <source>The crop plan could not be saved to %1: %2.</source>
        <translation>Le plan de recadrage n’a pas pu être enregistré dans %1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Open Crop Plan</source>
        <translation>Ouvrir un plan de recadrage</translation>
    </message>
    <message>
        <source>The crop plan %1 could not be opened: %2.</source>
        <translation>Le plan de recadrage %1 n’a pas pu être ouvert&#xa0;: %2.</translation>
    </message>
    <message>
        <source>1 image of the crop plan no longer exists: %1</source>
        <translation>1 image du plan de recadrage n’existe plus&#xa0;: %1</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images of the crop plan no longer exist.</source>
        <translation>
            <numerusform>%L1 image du plan de recadrage n’existe plus.</numerusform>
            <numerusform>%L1 images du plan de recadrage n’existent plus.</numerusform>
        </translation>
    </message>
    <message>
        <source>They stay in the list, marked, and fail when cropping.</source>
        <translation>Elles restent dans la liste, marquées, et échouent au recadrage.</translation>
    </message>
</context>
<context>
    <name>vellumo::PortraitRuleBox</name>
    <message>
        <source>Head and shoulders</source>
        <translation>Tête et épaules</translation>
    </message>
    <message>
        <source>Face height</source>
        <translation>Hauteur du visage</translation>
    </message>
    <message>
        <source>Eye line</source>
        <translation>Ligne des yeux</translation>
    </message>
    <message>
        <source>A portrait of the largest face in each image, of the chosen ratio</source>
        <translation>Un portrait du plus grand visage de chaque image, au rapport choisi</translation>
    </message>
    <message>
        <source>The face&apos;s height, in percent of the output&apos;s height</source>
        <translation>La hauteur du visage, en pour cent de la hauteur de la sortie</translation>
    </message>
    <message>
        <source>Where the eyes lie, in percent of the output&apos;s height from its top</source>
        <translation>Où se trouvent les yeux, en pour cent de la hauteur de la sortie depuis le haut</translation>
    </message>
    <message>
        <source>Face height:</source>
        <translation>Hauteur du visage&#xa0;:</translation>
    </message>
    <message>
        <source>Eye line:</source>
        <translation>Ligne des yeux&#xa0;:</translation>
    </message>
</context>
<context>
    <name>vellumo::ProfileFiles</name>
    <message>
        <source>The profile could not be saved to %1: %2.</source>
        <translation>Le profil n’a pas pu être enregistré dans %1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Save Profile</source>
        <translation>Enregistrer le profil</translation>
    </message>
    <message>
        <source>Load Profile</source>
        <translation>Charger un profil</translation>
    </message>
    <message>
        <source>The profile %1 could not be loaded: %2.</source>
        <translation>Le profil %1 n’a pas pu être chargé&#xa0;: %2.</translation>
    </message>
</context>
<context>
    <name>vellumo::RecentFiles</name>
    <message>
        <source>No Recent Files</source>
        <translation>Aucun fichier récent</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>Effacer le menu</translation>
    </message>
</context>
<context>
    <name>vellumo::ResizeRuleBox</name>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>To width</source>
        <translation>À la largeur</translation>
    </message>
    <message>
        <source>To height</source>
        <translation>À la hauteur</translation>
    </message>
    <message>
        <source>To fit within</source>
        <translation>Pour tenir dans</translation>
    </message>
    <message>
        <source>To exactly</source>
        <translation>Exactement à</translation>
    </message>
    <message>
        <source>Allow enlarging</source>
        <translation>Autoriser l’agrandissement</translation>
    </message>
    <message>
        <source>&quot;To exactly&quot; crops to the ratio width:height first, so nothing is distorted</source>
        <translation>«&#xa0;Exactement à&#xa0;» recadre d’abord au rapport largeur:hauteur, pour que rien ne soit déformé</translation>
    </message>
    <message>
        <source>Resize after cropping</source>
        <translation>Redimensionner après recadrage</translation>
    </message>
    <message>
        <source>Resize width</source>
        <translation>Largeur de redimensionnement</translation>
    </message>
    <message>
        <source>Resize height</source>
        <translation>Hauteur de redimensionnement</translation>
    </message>
    <message>
        <source>Without it, a crop smaller than the size keeps its own size</source>
        <translation>Sans cette option, un recadrage plus petit que la taille garde sa propre taille</translation>
    </message>
</context>
<context>
    <name>vellumo::RuleClashNotice</name>
    <message>
        <source>Trimming finds the uniform borders of the whole image, and the auto-crop then works within what is left; a custom rectangle already says what is cut. Turn “Trim uniform borders” off, or choose the auto-crop.</source>
        <translation>Le rognage trouve les bords unis de l’image entière, puis le recadrage automatique travaille dans ce qui reste&#xa0;; un rectangle personnalisé dit déjà ce qui est coupé. Désactivez «&#xa0;Rogner les bords unis&#xa0;» ou choisissez le recadrage automatique.</translation>
    </message>
    <message>
        <source>Padding places the whole image, or what the trim leaves, on a canvas of its ratio, so it cannot follow the auto-crop or a custom rectangle, which cut the image. Turn “Pad to ratio” off, or tick it again to pad instead of cutting.</source>
        <translation>Le complément place l’image entière, ou ce que le rognage en laisse, sur un fond de son rapport&#xa0;; il ne peut donc pas suivre le recadrage automatique ni un recadrage personnalisé, qui coupent l’image. Désactivez «&#xa0;Compléter au rapport&#xa0;», ou cochez-le de nouveau pour compléter au lieu de recadrer.</translation>
    </message>
    <message>
        <source>%1 files have no transparency: choose another background, or a format that keeps it (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF or BMP).</source>
        <translation>Les fichiers %1 n’ont pas de transparence&#xa0;: choisissez un autre fond, ou un format qui la garde (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF ou BMP).</translation>
    </message>
</context>
<context>
    <name>vellumo::SettingsPanel</name>
    <message>
        <source>Select Folder</source>
        <translation>Choisir un dossier</translation>
    </message>
    <message>
        <source>Cropping...</source>
        <translation>Recadrage...</translation>
    </message>
    <message>
        <source>Crop Images</source>
        <translation>Recadrer les images</translation>
    </message>
    <message>
        <source>GIF and BMP files cannot carry EXIF information</source>
        <translation>Les fichiers GIF et BMP ne peuvent pas contenir d’informations EXIF</translation>
    </message>
    <message>
        <source>Vellumo writes only the colour profile into %1 files</source>
        <translation>Vellumo n’écrit que le profil de couleur dans les fichiers %1</translation>
    </message>
    <message>
        <source> (lossless)</source>
        <translation> (sans perte)</translation>
    </message>
    <message>
        <source> (not for JPEG files: lossless)</source>
        <translation> (pas pour les fichiers JPEG&#xa0;: sans perte)</translation>
    </message>
    <message>
        <source> (not used: lossless)</source>
        <translation> (inutilisée&#xa0;: sans perte)</translation>
    </message>
</context>
<context>
    <name>vellumo::SizeLimitBox</name>
    <message>
        <source>bytes</source>
        <translation>octets</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>Ko</translation>
    </message>
    <message>
        <source>MB</source>
        <translation>Mo</translation>
    </message>
    <message>
        <source>Scale down to fit</source>
        <translation>Réduire pour tenir</translation>
    </message>
    <message>
        <source>Largest file size</source>
        <translation>Taille de fichier maximale</translation>
    </message>
    <message>
        <source>any size</source>
        <translation>toute taille</translation>
    </message>
    <message>
        <source>Each file is written at the highest quality, up to the slider&apos;s, that keeps it within this size</source>
        <translation>Chaque fichier est écrit dans la meilleure qualité, jusqu&apos;à celle du curseur, qui le garde dans cette taille</translation>
    </message>
    <message>
        <source>Size unit</source>
        <translation>Unité de taille</translation>
    </message>
    <message>
        <source>When even the lowest quality is too large, the picture is made smaller until it fits</source>
        <translation>Si même la qualité la plus basse est trop grande, l&apos;image est réduite jusqu&apos;à ce qu&apos;elle tienne</translation>
    </message>
</context>
<context>
    <name>vellumo::TrimRuleBox</name>
    <message>
        <source>Trim uniform borders</source>
        <translation>Rogner les bords unis</translation>
    </message>
    <message>
        <source>Cut away borders of the corners&apos; colour first; the crop is made within what is left</source>
        <translation>Couper d’abord les bords de la couleur des coins&#xa0;; le recadrage se fait dans ce qui reste</translation>
    </message>
    <message>
        <source>Trim tolerance</source>
        <translation>Tolérance du rognage</translation>
    </message>
    <message>
        <source>How far a colour may be from the border&apos;s and still be cut, in percent of the full range (0 to 100)</source>
        <translation>Jusqu’où une couleur peut s’écarter de celle du bord et être coupée quand même, en pour cent de toute l’étendue (0 à 100)</translation>
    </message>
    <message>
        <source>Pixels of the border kept on each side</source>
        <translation>Pixels du bord gardés de chaque côté</translation>
    </message>
    <message>
        <source>Trim margin</source>
        <translation>Marge du rognage</translation>
    </message>
    <message>
        <source>Tolerance:</source>
        <translation>Tolérance&#xa0;:</translation>
    </message>
    <message>
        <source>Margin:</source>
        <translation>Marge&#xa0;:</translation>
    </message>
</context>
<context>
    <name>vellumo::ViewController</name>
    <message>
        <source>No web browser could be opened. The video tutorial is at %1</source>
        <translation>Aucun navigateur web n’a pu être ouvert. Le tutoriel vidéo se trouve à l’adresse %1</translation>
    </message>
    <message>
        <source>The images could not be loaded.</source>
        <translation>Les images n’ont pas pu être chargées.</translation>
    </message>
    <message>
        <source>Reset Crop</source>
        <translation>Réinitialiser le recadrage</translation>
    </message>
    <message>
        <source>Reset All Crops</source>
        <translation>Réinitialiser tous les recadrages</translation>
    </message>
</context>
<context>
    <name>vellumo::WindowCropJob</name>
    <message>
        <source>Preparing…</source>
        <translation>Préparation…</translation>
    </message>
    <message>
        <source>The output folder %1 is a file, not a folder.</source>
        <translation>Le dossier de sortie %1 est un fichier, pas un dossier.</translation>
    </message>
    <message>
        <source>The folder %1 could not be created: %2.</source>
        <translation>Le dossier %1 n’a pas pu être créé&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>Arrêt…</translation>
    </message>
    <message>
        <source>No file manager could be opened to show the folder %1.</source>
        <translation>Aucun gestionnaire de fichiers n’a pu être ouvert pour afficher le dossier %1.</translation>
    </message>
</context>
</TS>
