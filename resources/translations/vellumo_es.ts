<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>CropQuestions</name>
    <message>
        <source>The folder %1 does not exist. Create it?</source>
        <translation>La carpeta %1 no existe. ¿Crearla?</translation>
    </message>
    <message>
        <source>Replace the original files of the listed image by their crops? The originals cannot be restored.</source>
        <translation>¿Reemplazar el archivo original de la imagen de la lista por su recorte? El original no se podrá recuperar.</translation>
    </message>
    <message numerus="yes">
        <source>Replace the original files of the %L1 listed images by their crops? The originals cannot be restored.</source>
        <translation>
            <numerusform>¿Reemplazar el archivo original de %L1 imagen de la lista por su recorte? El original no se podrá recuperar.</numerusform>
            <numerusform>¿Reemplazar los archivos originales de las %L1 imágenes de la lista por sus recortes? Los originales no se podrán recuperar.</numerusform>
        </translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Crear</translation>
    </message>
    <message>
        <source>Replace the Originals</source>
        <translation>Reemplazar los originales</translation>
    </message>
    <message>
        <source>Write Copies</source>
        <translation>Escribir copias</translation>
    </message>
    <message>
        <source>Number the Clashing Files</source>
        <translation>Numerar los archivos en conflicto</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>The crop rectangle leaves every image uncropped. Write uncropped copies?</source>
        <translation>El rectángulo de recorte deja todas las imágenes sin recortar. ¿Escribir copias sin recortar?</translation>
    </message>
    <message numerus="yes">
        <source>… and %L1 more</source>
        <translation>
            <numerusform>… y %L1 más</numerusform>
            <numerusform>… y %L1 más</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 images would be written to the same files, one over another:</source>
        <translation>
            <numerusform>%L1 imagen se escribiría en el mismo archivo, una encima de otra:</numerusform>
            <numerusform>%L1 imágenes se escribirían en los mismos archivos, una encima de otra:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CropResult</name>
    <message>
        <source>Not cropped: %1 (%2)</source>
        <translation>Sin recortar: %1 (%2)</translation>
    </message>
    <message>
        <source>Skipped: %1 (%2 already exists and was kept)</source>
        <translation>Omitida: %1 (%2 ya existe y se ha conservado)</translation>
    </message>
    <message>
        <source>Metadata not kept: %1 (%2)</source>
        <translation>Metadatos no conservados: %1 (%2)</translation>
    </message>
    <message>
        <source>Warning: %1 (%2)</source>
        <translation>Advertencia: %1 (%2)</translation>
    </message>
    <message>
        <source>Images cropped successfully.</source>
        <translation>Imágenes recortadas correctamente.</translation>
    </message>
    <message>
        <source>Some images could not be cropped.</source>
        <translation>Algunas imágenes no se pudieron recortar.</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
</context>
<context>
    <name>DesktopLaunch</name>
    <message>
        <source>Some items could not be added.</source>
        <translation>Algunos elementos no se pudieron añadir.</translation>
    </message>
</context>
<context>
    <name>DimensionText</name>
    <message>
        <source>Width: </source>
        <translation>Ancho: </translation>
    </message>
    <message>
        <source>Height: </source>
        <translation>Alto: </translation>
    </message>
</context>
<context>
    <name>Engine</name>
    <message>
        <source>cannot decode: %1</source>
        <translation>no se puede decodificar: %1</translation>
    </message>
    <message>
        <source>cannot crop: %1</source>
        <translation>no se puede recortar: %1</translation>
    </message>
    <message>
        <source>cannot write: %1</source>
        <translation>no se puede escribir: %1</translation>
    </message>
    <message>
        <source>cannot carry metadata: %1</source>
        <translation>no se pueden conservar los metadatos: %1</translation>
    </message>
    <message>
        <source>; </source>
        <translation>; </translation>
    </message>
    <message>
        <source>attention placement could not be found; centred</source>
        <translation>no se encontró colocación por atención; centrado</translation>
    </message>
    <message>
        <source>entropy placement could not be found; centred</source>
        <translation>no se encontró colocación por entropía; centrado</translation>
    </message>
    <message>
        <source>Clipped to %1 × %2</source>
        <translation>Recortado a %1 × %2</translation>
    </message>
    <message>
        <source>Whole image: neither pixels nor percents are chosen</source>
        <translation>Imagen entera: no se eligieron píxeles ni porcentajes</translation>
    </message>
    <message>
        <source>Whole image: the rectangle is empty</source>
        <translation>Imagen entera: el rectángulo está vacío</translation>
    </message>
    <message>
        <source>Whole image: the rectangle lies outside this image</source>
        <translation>Imagen entera: el rectángulo está fuera de esta imagen</translation>
    </message>
    <message>
        <source>Whole image: less than a pixel of the rectangle lies on this image</source>
        <translation>Imagen entera: menos de un píxel del rectángulo está en esta imagen</translation>
    </message>
    <message>
        <source>Whole image: nothing but background to trim</source>
        <translation>Imagen entera: solo hay fondo que recortar</translation>
    </message>
    <message>
        <source>first frame only (of %1)</source>
        <translation>solo el primer fotograma (de %1)</translation>
    </message>
    <message>
        <source>faces were not looked for; placed by attention</source>
        <translation>no se buscaron caras; colocado por atención</translation>
    </message>
    <message>
        <source>faces were not looked for; centred</source>
        <translation>no se buscaron caras; centrado</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1; placed by attention</source>
        <translation>no se pudieron buscar caras: %1; colocado por atención</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1; centred</source>
        <translation>no se pudieron buscar caras: %1; centrado</translation>
    </message>
    <message>
        <source>no face found; placed by attention</source>
        <translation>no se encontró ninguna cara; colocado por atención</translation>
    </message>
    <message>
        <source>no face found; centred</source>
        <translation>no se encontró ninguna cara; centrado</translation>
    </message>
    <message>
        <source>the portrait needs a face, and none was looked for</source>
        <translation>el retrato necesita una cara y no se buscó ninguna</translation>
    </message>
    <message>
        <source>faces could not be looked for: %1</source>
        <translation>no se pudieron buscar caras: %1</translation>
    </message>
    <message>
        <source>no face found for the portrait</source>
        <translation>no se encontró ninguna cara para el retrato</translation>
    </message>
    <message>
        <source>the face is too near the image&apos;s edges for the portrait as asked; made smaller and moved onto the image</source>
        <translation>la cara está demasiado cerca de los bordes de la imagen para el retrato pedido; reducido y movido dentro de la imagen</translation>
    </message>
    <message>
        <source>the face is too near the image&apos;s edge for the portrait as asked; moved onto the image</source>
        <translation>la cara está demasiado cerca del borde de la imagen para el retrato pedido; movido dentro de la imagen</translation>
    </message>
    <message>
        <source>made smaller to %1 × %2 to fit %3</source>
        <translation>reducido a %1 × %2 para caber en %3</translation>
    </message>
    <message>
        <source>the file is not an image Vellumo can read</source>
        <translation>el archivo no es una imagen que Vellumo pueda leer</translation>
    </message>
    <message>
        <source>the image&apos;s size cannot be read</source>
        <translation>no se puede leer el tamaño de la imagen</translation>
    </message>
    <message>
        <source>Lossless: widened to the file&apos;s %1 × %2 blocks</source>
        <translation>Sin pérdida: ampliado a los bloques de %1 × %2 del archivo</translation>
    </message>
    <message>
        <source>%1 column at the left edge left out (a partial block)</source>
        <translation>%1 columna del borde izquierdo omitida (un bloque parcial)</translation>
    </message>
    <message>
        <source>%1 columns at the left edge left out (a partial block)</source>
        <translation>%1 columnas del borde izquierdo omitidas (un bloque parcial)</translation>
    </message>
    <message>
        <source>%1 row at the top edge left out (a partial block)</source>
        <translation>%1 fila del borde superior omitida (un bloque parcial)</translation>
    </message>
    <message>
        <source>%1 rows at the top edge left out (a partial block)</source>
        <translation>%1 filas del borde superior omitidas (un bloque parcial)</translation>
    </message>
    <message>
        <source>Re-encoded: this JPEG cannot be cropped without re-encoding</source>
        <translation>Recodificado: este JPEG no se puede recortar sin recodificar</translation>
    </message>
    <message>
        <source>Re-encoded: a resized crop cannot be lossless</source>
        <translation>Recodificado: un recorte redimensionado no puede ser sin pérdida</translation>
    </message>
    <message>
        <source>Re-encoded: a padded picture cannot be lossless</source>
        <translation>Recodificado: una imagen con relleno no puede ser sin pérdida</translation>
    </message>
    <message>
        <source>Re-encoded: the rectangle holds no whole block of the file</source>
        <translation>Recodificado: el rectángulo no contiene ningún bloque entero del archivo</translation>
    </message>
    <message>
        <source>%1 has no value: left empty in the name</source>
        <translation>%1 no tiene valor: se deja vacío en el nombre</translation>
    </message>
    <message>
        <source>%1 have no value: left empty in the name</source>
        <translation>%1 no tienen valor: se dejan vacíos en el nombre</translation>
    </message>
    <message>
        <source>not enlarged: the crop is %1 × %2</source>
        <translation>no ampliado: el recorte mide %1 × %2</translation>
    </message>
    <message>
        <source>The name template cannot be used: %1.</source>
        <translation>La plantilla de nombre no se puede usar: %1.</translation>
    </message>
    <message>
        <source>There are no images to crop.</source>
        <translation>No hay imágenes que recortar.</translation>
    </message>
    <message>
        <source>Please select an output folder.</source>
        <translation>Seleccione una carpeta de salida.</translation>
    </message>
</context>
<context>
    <name>JobStatusText</name>
    <message>
        <source>about %L1 s left</source>
        <translation>quedan unos %L1 s</translation>
    </message>
    <message>
        <source>about %L1 min left</source>
        <translation>quedan unos %L1 min</translation>
    </message>
    <message>
        <source>Cropping %L1 of %L2</source>
        <translation>Recortando %L1 de %L2</translation>
    </message>
</context>
<context>
    <name>LaunchArguments</name>
    <message>
        <source>“%1” does not exist.</source>
        <translation>«%1» no existe.</translation>
    </message>
    <message>
        <source>“%1” holds no images.</source>
        <translation>«%1» no contiene imágenes.</translation>
    </message>
</context>
<context>
    <name>ListQuestions</name>
    <message>
        <source>Are you sure you want to remove all the images from the list?</source>
        <translation>¿Seguro que desea quitar todas las imágenes de la lista?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Add Images…</source>
        <translation>Añadir imágenes…</translation>
    </message>
    <message>
        <source>Add image files to the list; files can also be dropped onto it</source>
        <translation>Añadir archivos de imagen a la lista; también se pueden soltar archivos sobre ella</translation>
    </message>
    <message>
        <source>Remove Selected</source>
        <translation>Quitar selección</translation>
    </message>
    <message>
        <source>Remove All</source>
        <translation>Quitar todo</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>The images to crop, one a row: name, size and whether its crop was adjusted</source>
        <translation>Las imágenes que recortar, una por fila: nombre, tamaño y si su recorte se ajustó</translation>
    </message>
    <message>
        <source>The images to crop as a contact sheet, each with its crop marked</source>
        <translation>Las imágenes que recortar como hoja de contactos, cada una con su recorte marcado</translation>
    </message>
    <message>
        <source>No images</source>
        <translation>Ninguna imagen</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recorte</translation>
    </message>
    <message>
        <source>Auto crop to the aspect ratio</source>
        <translation>Recorte automático a la proporción</translation>
    </message>
    <message>
        <source>The largest rectangle of the ratio in each image, placed as chosen below</source>
        <translation>El mayor rectángulo de la proporción en cada imagen, colocado como se elija abajo</translation>
    </message>
    <message>
        <source>Aspect ratio</source>
        <translation>Relación de aspecto</translation>
    </message>
    <message>
        <source>Custom crop</source>
        <translation>Recorte personalizado</translation>
    </message>
    <message>
        <source>A rectangle given in pixels or in percents of each image</source>
        <translation>Un rectángulo dado en píxeles o en porcentaje de cada imagen</translation>
    </message>
    <message>
        <source>In pixels</source>
        <translation>En píxeles</translation>
    </message>
    <message>
        <source>Origin X:</source>
        <translation>Origen X:</translation>
    </message>
    <message>
        <source>Origin X in pixels</source>
        <translation>Origen X en píxeles</translation>
    </message>
    <message>
        <source>Left edge of the crop, in pixels from the left</source>
        <translation>Borde izquierdo del recorte, en píxeles desde la izquierda</translation>
    </message>
    <message>
        <source>Origin Y:</source>
        <translation>Origen Y:</translation>
    </message>
    <message>
        <source>Origin Y in pixels</source>
        <translation>Origen Y en píxeles</translation>
    </message>
    <message>
        <source>Lower edge of the crop, in pixels from the bottom</source>
        <translation>Borde inferior del recorte, en píxeles desde abajo</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>Ancho:</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Ancho en píxeles</translation>
    </message>
    <message>
        <source>Width of the crop, in pixels</source>
        <translation>Ancho del recorte, en píxeles</translation>
    </message>
    <message>
        <source>Height:</source>
        <translation>Alto:</translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation>Alto en píxeles</translation>
    </message>
    <message>
        <source>Height of the crop, in pixels</source>
        <translation>Alto del recorte, en píxeles</translation>
    </message>
    <message>
        <source>In percents</source>
        <translation>En porcentaje</translation>
    </message>
    <message>
        <source>Origin X in percent</source>
        <translation>Origen X en porcentaje</translation>
    </message>
    <message>
        <source>Left edge of the crop, in percent of the image width</source>
        <translation>Borde izquierdo del recorte, en porcentaje del ancho de la imagen</translation>
    </message>
    <message>
        <source>Origin X in percent, step</source>
        <translation>Origen X en porcentaje, paso</translation>
    </message>
    <message>
        <source>Up and Down arrows change it by one percent</source>
        <translation>Las flechas Arriba y Abajo lo cambian en un uno por ciento</translation>
    </message>
    <message>
        <source>Origin Y in percent</source>
        <translation>Origen Y en porcentaje</translation>
    </message>
    <message>
        <source>Lower edge of the crop, in percent of the image height</source>
        <translation>Borde inferior del recorte, en porcentaje del alto de la imagen</translation>
    </message>
    <message>
        <source>Origin Y in percent, step</source>
        <translation>Origen Y en porcentaje, paso</translation>
    </message>
    <message>
        <source>Width in percent</source>
        <translation>Ancho en porcentaje</translation>
    </message>
    <message>
        <source>Width of the crop, in percent of the image width</source>
        <translation>Ancho del recorte, en porcentaje del ancho de la imagen</translation>
    </message>
    <message>
        <source>Width in percent, step</source>
        <translation>Ancho en porcentaje, paso</translation>
    </message>
    <message>
        <source>Height in percent</source>
        <translation>Alto en porcentaje</translation>
    </message>
    <message>
        <source>Height of the crop, in percent of the image height</source>
        <translation>Alto del recorte, en porcentaje del alto de la imagen</translation>
    </message>
    <message>
        <source>Height in percent, step</source>
        <translation>Alto en porcentaje, paso</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Salida</translation>
    </message>
    <message>
        <source>Faces, trim, pad</source>
        <translation>Caras, recorte, relleno</translation>
    </message>
    <message>
        <source>Format:</source>
        <translation>Formato:</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Quality:</source>
        <translation>Calidad:</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Calidad</translation>
    </message>
    <message>
        <source>Quality of JPEG and JPEG 2000 output</source>
        <translation>Calidad de la salida JPEG y JPEG 2000</translation>
    </message>
    <message>
        <source>File name:</source>
        <translation>Nombre de archivo:</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>Nombre de archivo</translation>
    </message>
    <message>
        <source>The output&apos;s name; tokens in brackets, such as [FileName] or [FileIndex], are filled in for each image (the Tokens menu has them all)</source>
        <translation>El nombre de la salida; los comodines entre corchetes, como [FileName] o [FileIndex], se rellenan para cada imagen (el menú «Comodines» los tiene todos)</translation>
    </message>
    <message>
        <source>Tokens: [FileName] [FileIndex] [Folder] [Ext] [Date] [Date:pattern] [Camera] [Width] [Height] [Ratio]; the Tokens menu says what each one is and puts it in</source>
        <translation>Comodines: [FileName] [FileIndex] [Folder] [Ext] [Date] [Date:pattern] [Camera] [Width] [Height] [Ratio]; el menú «Comodines» explica cada uno y lo inserta</translation>
    </message>
    <message>
        <source>[FileName], [FileIndex], [Date] and more: see the Tokens menu</source>
        <translation>[FileName], [FileIndex], [Date] y más: ver el menú «Comodines»</translation>
    </message>
    <message>
        <source>Output folder:</source>
        <translation>Carpeta de salida:</translation>
    </message>
    <message>
        <source>Output folder</source>
        <translation>Carpeta de salida</translation>
    </message>
    <message>
        <source>The folder the cropped images go to</source>
        <translation>La carpeta a la que van las imágenes recortadas</translation>
    </message>
    <message>
        <source>Browse…</source>
        <translation>Examinar…</translation>
    </message>
    <message>
        <source>Keep EXIF information and creation date</source>
        <translation>Conservar la información EXIF y la fecha de creación</translation>
    </message>
    <message>
        <source>Resize after cropping:</source>
        <translation>Redimensionar tras recortar:</translation>
    </message>
    <message>
        <source>Crop JPEG files without re-encoding (lossless)</source>
        <translation>Recortar archivos JPEG sin recodificar (sin pérdida)</translation>
    </message>
    <message>
        <source>JPEG files are cut on their 8 or 16 pixel block grid instead of being decoded and encoded again: no quality is lost, and the rectangle may grow by up to a block at its left and top</source>
        <translation>Los archivos JPEG se cortan sobre su cuadrícula de bloques de 8 o 16 píxeles en lugar de decodificarse y codificarse de nuevo: no se pierde calidad, y el rectángulo puede crecer hasta un bloque por la izquierda y por arriba</translation>
    </message>
    <message>
        <source>Replace the original files</source>
        <translation>Reemplazar los archivos originales</translation>
    </message>
    <message>
        <source>Each image&apos;s crop replaces its own file, in its own format; the name, folder and format above are not used</source>
        <translation>El recorte de cada imagen reemplaza su propio archivo, en su propio formato; el nombre, la carpeta y el formato de arriba no se usan</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>Crop preview</source>
        <translation>Vista previa del recorte</translation>
    </message>
    <message>
        <source>The selected image with its crop</source>
        <translation>La imagen seleccionada con su recorte</translation>
    </message>
    <message>
        <source>Original:</source>
        <translation>Original:</translation>
    </message>
    <message>
        <source>Width: 0</source>
        <translation>Ancho: 0</translation>
    </message>
    <message>
        <source>Height: 0</source>
        <translation>Alto: 0</translation>
    </message>
    <message>
        <source>Output:</source>
        <translation>Salida:</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Crop Images</source>
        <translation>Recortar imágenes</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Stop cropping (Esc): no new image begins, the images under way end without leaving a partial file</source>
        <translation>Detener el recorte (Esc): no empieza ninguna imagen nueva, las que están en curso terminan sin dejar un archivo a medias</translation>
    </message>
    <message>
        <source>Which image the crop job is at, and about how long the rest will take</source>
        <translation>En qué imagen va el recorte y cuánto tardará aproximadamente el resto</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>Load Recent Profile</source>
        <translation>Cargar perfil reciente</translation>
    </message>
    <message>
        <source>Open Recent Crop Plan</source>
        <translation>Abrir plan de recorte reciente</translation>
    </message>
    <message>
        <source>&amp;Images</source>
        <translation>&amp;Imágenes</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ay&amp;uda</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nuevo</translation>
    </message>
    <message>
        <source>Load Profile…</source>
        <translation>Cargar perfil…</translation>
    </message>
    <message>
        <source>Save Profile</source>
        <translation>Guardar perfil</translation>
    </message>
    <message>
        <source>Save Profile As…</source>
        <translation>Guardar perfil como…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>Open Crop Plan…</source>
        <translation>Abrir plan de recorte…</translation>
    </message>
    <message>
        <source>Save Crop Plan…</source>
        <translation>Guardar plan de recorte…</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>Reset Crop</source>
        <translation>Restablecer recorte</translation>
    </message>
    <message>
        <source>Reset All Crops</source>
        <translation>Restablecer todos los recortes</translation>
    </message>
    <message>
        <source>Show as List</source>
        <translation>Mostrar como lista</translation>
    </message>
    <message>
        <source>Show the images as a list (Ctrl+1)</source>
        <translation>Mostrar las imágenes como lista (Ctrl+1)</translation>
    </message>
    <message>
        <source>Show as Contact Sheet</source>
        <translation>Mostrar como hoja de contactos</translation>
    </message>
    <message>
        <source>Show the images as a contact sheet of thumbnails with their crops (Ctrl+2)</source>
        <translation>Mostrar las imágenes como hoja de contactos de miniaturas con sus recortes (Ctrl+2)</translation>
    </message>
    <message>
        <source>Video Tutorial</source>
        <translation>Tutorial en vídeo</translation>
    </message>
    <message>
        <source>About Vellumo</source>
        <translation>Acerca de Vellumo</translation>
    </message>
    <message>
        <source>At most:</source>
        <translation>Como máximo:</translation>
    </message>
    <message>
        <source>Keep folder structure</source>
        <translation>Mantener la estructura de carpetas</translation>
    </message>
    <message>
        <source>Each crop goes into the output folder&apos;s subfolder that matches the folder its image was found in</source>
        <translation>Cada recorte va a la subcarpeta de la carpeta de salida que corresponde a la carpeta donde se encontró su imagen</translation>
    </message>
</context>
<context>
    <name>MessageBox</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>OpenFilesDialog</name>
    <message>
        <source>Images (%1)</source>
        <translation>Imágenes (%1)</translation>
    </message>
</context>
<context>
    <name>OverwriteBox</name>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>Yes to All</source>
        <translation>Sí a todo</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>No to All</source>
        <translation>No a todo</translation>
    </message>
    <message>
        <source>The file %1 already exists. Do you want to overwrite it?</source>
        <translation>El archivo %1 ya existe. ¿Desea sobrescribirlo?</translation>
    </message>
</context>
<context>
    <name>PopUpChoices</name>
    <message>
        <source>Custom…</source>
        <translation>Personalizada…</translation>
    </message>
</context>
<context>
    <name>ReportText</name>
    <message>
        <source>1 image</source>
        <translation>1 imagen</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images</source>
        <translation>
            <numerusform>%L1 imagen</numerusform>
            <numerusform>%L1 imágenes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 would be written</source>
        <translation>
            <numerusform>%L1 se escribiría</numerusform>
            <numerusform>%L1 se escribirían</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 written</source>
        <translation>
            <numerusform>%L1 escrita</numerusform>
            <numerusform>%L1 escritas</numerusform>
        </translation>
    </message>
    <message>
        <source>1 kept as it was</source>
        <translation>1 conservada tal cual</translation>
    </message>
    <message numerus="yes">
        <source>%L1 kept as they were</source>
        <translation>
            <numerusform>%L1 conservada tal cual</numerusform>
            <numerusform>%L1 conservadas tal cual</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 failed</source>
        <translation>
            <numerusform>%L1 fallida</numerusform>
            <numerusform>%L1 fallidas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%L1 not cropped</source>
        <translation>
            <numerusform>%L1 sin recortar</numerusform>
            <numerusform>%L1 sin recortar</numerusform>
        </translation>
    </message>
    <message>
        <source>Cropping was stopped: %L1 of 1 image was written.</source>
        <translation>Se detuvo el recorte: se escribieron %L1 de 1 imagen.</translation>
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
        <translation>1 con una advertencia</translation>
    </message>
    <message numerus="yes">
        <source>%L1 with warnings</source>
        <translation>
            <numerusform>%L1 con una advertencia</numerusform>
            <numerusform>%L1 con advertencias</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Cropping was stopped: %L1 of %L2 images were written.</source>
        <translation>
            <numerusform>Se detuvo el recorte: se escribieron %L1 de %L2 imagen.</numerusform>
            <numerusform>Se detuvo el recorte: se escribieron %L1 de %L2 imágenes.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SaveFileDialog</name>
    <message>
        <source>Vellumo profiles (*.%1)</source>
        <translation>Perfiles de Vellumo (*.%1)</translation>
    </message>
</context>
<context>
    <name>ThumbnailMaker</name>
    <message>
        <source>the file is missing</source>
        <translation>falta el archivo</translation>
    </message>
    <message>
        <source>the picture has no pixels</source>
        <translation>la imagen no tiene píxeles</translation>
    </message>
</context>
<context>
    <name>vellumo::AboutBox</name>
    <message>
        <source>About Vellumo</source>
        <translation>Acerca de Vellumo</translation>
    </message>
    <message>
        <source>&lt;b&gt;Vellumo %1&lt;/b&gt;&lt;br&gt;Batch image cropping</source>
        <translation>&lt;b&gt;Vellumo %1&lt;/b&gt;&lt;br&gt;Recorte de imágenes por lotes</translation>
    </message>
    <message>
        <source>Asking the image worker about its sandbox…</source>
        <translation>Consultando al proceso de imágenes sobre su entorno aislado…</translation>
    </message>
    <message>
        <source>Sandbox layers</source>
        <translation>Capas del entorno aislado</translation>
    </message>
    <message>
        <source>Refuse to decode images while a layer is missing (from the next start)</source>
        <translation>No decodificar imágenes mientras falte una capa (desde el próximo inicio)</translation>
    </message>
    <message>
        <source>The image worker did not start: %1</source>
        <translation>El proceso de imágenes no se inició: %1</translation>
    </message>
    <message>
        <source>Images are decoded in a sandboxed worker: every layer is active.</source>
        <translation>Las imágenes se decodifican en un proceso aislado: todas las capas están activas.</translation>
    </message>
    <message>
        <source>The image worker&apos;s sandbox is incomplete: %1 missing.</source>
        <translation>El entorno aislado del proceso de imágenes está incompleto; falta: %1.</translation>
    </message>
    <message>
        <source>active</source>
        <translation>activa</translation>
    </message>
    <message>
        <source>MISSING</source>
        <translation>FALTA</translation>
    </message>
    <message>
        <source>not reported by the worker</source>
        <translation>no informado por el proceso de imágenes</translation>
    </message>
</context>
<context>
    <name>vellumo::AutoCropRuleBox</name>
    <message>
        <source>Top left</source>
        <translation>Arriba a la izquierda</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Arriba</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Arriba a la derecha</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Izquierda</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Centro</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Derecha</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Abajo a la izquierda</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Abajo</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Abajo a la derecha</translation>
    </message>
    <message>
        <source>Match each image&apos;s orientation</source>
        <translation>Seguir la orientación de cada imagen</translation>
    </message>
    <message>
        <source>Custom ratio width</source>
        <translation>Ancho de la proporción personalizada</translation>
    </message>
    <message>
        <source>Custom ratio height</source>
        <translation>Alto de la proporción personalizada</translation>
    </message>
    <message>
        <source>Turn the rectangle so that its longer side follows each image&apos;s longer side</source>
        <translation>Girar el rectángulo para que su lado mayor siga el lado mayor de cada imagen</translation>
    </message>
    <message>
        <source>Custom ratio:</source>
        <translation>Proporción:</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Atención</translation>
    </message>
    <message>
        <source>Where the eye goes: skin, saturated colour, edges</source>
        <translation>Adonde va la mirada: piel, color saturado, bordes</translation>
    </message>
    <message>
        <source>Entropy</source>
        <translation>Entropía</translation>
    </message>
    <message>
        <source>The busiest part of the picture</source>
        <translation>La parte más cargada de la imagen</translation>
    </message>
    <message>
        <source>Position:</source>
        <translation>Posición:</translation>
    </message>
    <message>
        <source>Faces</source>
        <translation>Caras</translation>
    </message>
    <message>
        <source>As many faces as fit, kept whole</source>
        <translation>Tantas caras como quepan, cada una entera</translation>
    </message>
</context>
<context>
    <name>vellumo::CropAdjustmentStore</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Deshacer %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Rehacer %1</translation>
    </message>
    <message>
        <source>Adjust Crop</source>
        <translation>Ajustar recorte</translation>
    </message>
</context>
<context>
    <name>vellumo::CropPreviewView</name>
    <message>
        <source>No crop to show</source>
        <translation>Ningún recorte que mostrar</translation>
    </message>
    <message>
        <source>Crop %1 by %2 pixels at %3, %4 from the top left; arrow keys move it by one pixel, with Shift by ten</source>
        <translation>Recorte de %1 por %2 píxeles en %3, %4 desde la esquina superior izquierda; las flechas lo mueven un píxel, con Mayús diez</translation>
    </message>
</context>
<context>
    <name>vellumo::ImageList</name>
    <message>
        <source>No images</source>
        <translation>Ninguna imagen</translation>
    </message>
    <message>
        <source>1 image</source>
        <translation>1 imagen</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images</source>
        <translation>
            <numerusform>%L1 imagen</numerusform>
            <numerusform>%L1 imágenes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %L1 selected</source>
        <translation>
            <numerusform>, %L1 seleccionada</numerusform>
            <numerusform>, %L1 seleccionadas</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot be shown: %1</source>
        <translation>No se puede mostrar: %1</translation>
    </message>
    <message>
        <source>Crop adjusted by hand</source>
        <translation>Recorte ajustado a mano</translation>
    </message>
    <message>
        <source>, adjusted</source>
        <translation>, ajustada</translation>
    </message>
    <message>
        <source>, cannot be shown: %1</source>
        <translation>, no se puede mostrar: %1</translation>
    </message>
</context>
<context>
    <name>vellumo::NameTokenButton</name>
    <message>
        <source>the image&apos;s own name</source>
        <translation>el nombre propio de la imagen</translation>
    </message>
    <message>
        <source>its place in the list</source>
        <translation>su posición en la lista</translation>
    </message>
    <message>
        <source>the name of its folder</source>
        <translation>el nombre de su carpeta</translation>
    </message>
    <message>
        <source>its extension</source>
        <translation>su extensión</translation>
    </message>
    <message>
        <source>the day it was taken</source>
        <translation>el día en que se tomó</translation>
    </message>
    <message>
        <source>the day and time it was taken</source>
        <translation>el día y la hora en que se tomó</translation>
    </message>
    <message>
        <source>the camera&apos;s model</source>
        <translation>el modelo de la cámara</translation>
    </message>
    <message>
        <source>the output&apos;s width in pixels</source>
        <translation>el ancho de la salida en píxeles</translation>
    </message>
    <message>
        <source>the output&apos;s height in pixels</source>
        <translation>el alto de la salida en píxeles</translation>
    </message>
    <message>
        <source>the output&apos;s aspect ratio</source>
        <translation>la relación de aspecto de la salida</translation>
    </message>
    <message>
        <source>Tokens</source>
        <translation>Comodines</translation>
    </message>
    <message>
        <source>Put a token into the name at the cursor</source>
        <translation>Insertar un comodín en el nombre en la posición del cursor</translation>
    </message>
    <message>
        <source>Name tokens</source>
        <translation>Comodines del nombre</translation>
    </message>
</context>
<context>
    <name>vellumo::OutputNameText</name>
    <message>
        <source>Not a name: %1</source>
        <translation>No es un nombre: %1</translation>
    </message>
    <message>
        <source>Becomes: %1</source>
        <translation>Se convierte en: %1</translation>
    </message>
</context>
<context>
    <name>vellumo::PadRuleBox</name>
    <message>
        <source>Colour</source>
        <translation>Color</translation>
    </message>
    <message>
        <source>Edge</source>
        <translation>Borde</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Desenfoque</translation>
    </message>
    <message>
        <source>Transparent</source>
        <translation>Transparente</translation>
    </message>
    <message>
        <source>Pad to ratio</source>
        <translation>Rellenar a la proporción</translation>
    </message>
    <message>
        <source>Pad ratio width</source>
        <translation>Ancho de la proporción de relleno</translation>
    </message>
    <message>
        <source>Pad ratio height</source>
        <translation>Alto de la proporción de relleno</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>Pad background</source>
        <translation>Fondo del relleno</translation>
    </message>
    <message>
        <source>Pad colour</source>
        <translation>Color de relleno</translation>
    </message>
    <message>
        <source>A colour name (white, black, grey…) or #rrggbb</source>
        <translation>Un nombre de color (white, black, grey…) o #rrggbb</translation>
    </message>
    <message>
        <source>Choose pad colour</source>
        <translation>Elegir el color de relleno</translation>
    </message>
    <message>
        <source>Background:</source>
        <translation>Fondo:</translation>
    </message>
    <message>
        <source>Place the whole image, or what the trim leaves, on a canvas of this ratio instead of cutting it: the crop modes are turned off</source>
        <translation>Colocar la imagen entera, o lo que deja el recorte de bordes, en un lienzo de esta proporción en lugar de recortarla: los modos de recorte se desactivan</translation>
    </message>
</context>
<context>
    <name>vellumo::PlanFiles</name>
    <message>
        <source>Save the crop adjustments before closing?</source>
        <translation>¿Guardar los ajustes de recorte antes de cerrar?</translation>
    </message>
    <message>
        <source>the file no longer exists</source>
        <translation>el archivo ya no existe</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Don&apos;t Save</source>
        <translation>No guardar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Save Crop Plan</source>
        <translation>Guardar plan de recorte</translation>
    </message>
    <message>
        <source>The crop plan could not be saved to %1: %2.</source>
        <translation>No se pudo guardar el plan de recorte en %1: %2.</translation>
    </message>
    <message>
        <source>Open Crop Plan</source>
        <translation>Abrir plan de recorte</translation>
    </message>
    <message>
        <source>The crop plan %1 could not be opened: %2.</source>
        <translation>No se pudo abrir el plan de recorte %1: %2.</translation>
    </message>
    <message>
        <source>1 image of the crop plan no longer exists: %1</source>
        <translation>1 imagen del plan de recorte ya no existe: %1</translation>
    </message>
    <message numerus="yes">
        <source>%L1 images of the crop plan no longer exist.</source>
        <translation>
            <numerusform>%L1 imagen del plan de recorte ya no existe.</numerusform>
            <numerusform>%L1 imágenes del plan de recorte ya no existen.</numerusform>
        </translation>
    </message>
    <message>
        <source>They stay in the list, marked, and fail when cropping.</source>
        <translation>Siguen en la lista, marcadas, y fallan al recortar.</translation>
    </message>
</context>
<context>
    <name>vellumo::PortraitRuleBox</name>
    <message>
        <source>Head and shoulders</source>
        <translation>Cabeza y hombros</translation>
    </message>
    <message>
        <source>Face height</source>
        <translation>Altura de la cara</translation>
    </message>
    <message>
        <source>Eye line</source>
        <translation>Línea de los ojos</translation>
    </message>
    <message>
        <source>A portrait of the largest face in each image, of the chosen ratio</source>
        <translation>Un retrato de la cara más grande de cada imagen, en la proporción elegida</translation>
    </message>
    <message>
        <source>The face&apos;s height, in percent of the output&apos;s height</source>
        <translation>La altura de la cara, en porcentaje de la altura de la salida</translation>
    </message>
    <message>
        <source>Where the eyes lie, in percent of the output&apos;s height from its top</source>
        <translation>Dónde quedan los ojos, en porcentaje de la altura de la salida desde arriba</translation>
    </message>
    <message>
        <source>Face height:</source>
        <translation>Altura de la cara:</translation>
    </message>
    <message>
        <source>Eye line:</source>
        <translation>Línea de los ojos:</translation>
    </message>
</context>
<context>
    <name>vellumo::ProfileFiles</name>
    <message>
        <source>The profile could not be saved to %1: %2.</source>
        <translation>No se pudo guardar el perfil en %1: %2.</translation>
    </message>
    <message>
        <source>Save Profile</source>
        <translation>Guardar perfil</translation>
    </message>
    <message>
        <source>Load Profile</source>
        <translation>Cargar perfil</translation>
    </message>
    <message>
        <source>The profile %1 could not be loaded: %2.</source>
        <translation>No se pudo cargar el perfil %1: %2.</translation>
    </message>
</context>
<context>
    <name>vellumo::RecentFiles</name>
    <message>
        <source>No Recent Files</source>
        <translation>Ningún archivo reciente</translation>
    </message>
    <message>
        <source>Clear Menu</source>
        <translation>Vaciar menú</translation>
    </message>
</context>
<context>
    <name>vellumo::ResizeRuleBox</name>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>To width</source>
        <translation>Al ancho</translation>
    </message>
    <message>
        <source>To height</source>
        <translation>Al alto</translation>
    </message>
    <message>
        <source>To fit within</source>
        <translation>Para caber en</translation>
    </message>
    <message>
        <source>To exactly</source>
        <translation>Exactamente a</translation>
    </message>
    <message>
        <source>Allow enlarging</source>
        <translation>Permitir ampliar</translation>
    </message>
    <message>
        <source>&quot;To exactly&quot; crops to the ratio width:height first, so nothing is distorted</source>
        <translation>«Exactamente a» recorta primero a la proporción ancho:alto, para que nada se deforme</translation>
    </message>
    <message>
        <source>Resize after cropping</source>
        <translation>Redimensionar tras recortar</translation>
    </message>
    <message>
        <source>Resize width</source>
        <translation>Ancho de redimensionado</translation>
    </message>
    <message>
        <source>Resize height</source>
        <translation>Alto de redimensionado</translation>
    </message>
    <message>
        <source>Without it, a crop smaller than the size keeps its own size</source>
        <translation>Sin esta opción, un recorte más pequeño que el tamaño conserva su propio tamaño</translation>
    </message>
</context>
<context>
    <name>vellumo::RuleClashNotice</name>
    <message>
        <source>Trimming finds the uniform borders of the whole image, and the auto-crop then works within what is left; a custom rectangle already says what is cut. Turn “Trim uniform borders” off, or choose the auto-crop.</source>
        <translation>El recorte de bordes encuentra los bordes uniformes de la imagen entera, y el recorte automático trabaja después dentro de lo que queda; un rectángulo personalizado ya dice qué se corta. Desactive «Recortar los bordes uniformes» o elija el recorte automático.</translation>
    </message>
    <message>
        <source>Padding places the whole image, or what the trim leaves, on a canvas of its ratio, so it cannot follow the auto-crop or a custom rectangle, which cut the image. Turn “Pad to ratio” off, or tick it again to pad instead of cutting.</source>
        <translation>El relleno coloca la imagen entera, o lo que deja el recorte de bordes, en un lienzo de su proporción, así que no puede seguir al recorte automático ni a un recorte personalizado, que cortan la imagen. Desactive «Rellenar a la proporción», o márquelo de nuevo para rellenar en lugar de recortar.</translation>
    </message>
    <message>
        <source>%1 files have no transparency: choose another background, or a format that keeps it (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF or BMP).</source>
        <translation>Los archivos %1 no tienen transparencia: elija otro fondo, o un formato que la conserve (PNG, TIFF, WEBP, AVIF, HEIC, JXL, JP2, GIF o BMP).</translation>
    </message>
</context>
<context>
    <name>vellumo::SettingsPanel</name>
    <message>
        <source>Select Folder</source>
        <translation>Seleccionar carpeta</translation>
    </message>
    <message>
        <source>Cropping...</source>
        <translation>Recortando...</translation>
    </message>
    <message>
        <source>Crop Images</source>
        <translation>Recortar imágenes</translation>
    </message>
    <message>
        <source>GIF and BMP files cannot carry EXIF information</source>
        <translation>Los archivos GIF y BMP no pueden llevar información EXIF</translation>
    </message>
    <message>
        <source>Vellumo writes only the colour profile into %1 files</source>
        <translation>Vellumo solo escribe el perfil de color en los archivos %1</translation>
    </message>
    <message>
        <source> (lossless)</source>
        <translation> (sin pérdida)</translation>
    </message>
    <message>
        <source> (not for JPEG files: lossless)</source>
        <translation> (no para archivos JPEG: sin pérdida)</translation>
    </message>
    <message>
        <source> (not used: lossless)</source>
        <translation> (sin uso: sin pérdida)</translation>
    </message>
</context>
<context>
    <name>vellumo::SizeLimitBox</name>
    <message>
        <source>bytes</source>
        <translation>bytes</translation>
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
        <translation>Reducir hasta que quepa</translation>
    </message>
    <message>
        <source>Largest file size</source>
        <translation>Tamaño de archivo máximo</translation>
    </message>
    <message>
        <source>any size</source>
        <translation>cualquier tamaño</translation>
    </message>
    <message>
        <source>Each file is written at the highest quality, up to the slider&apos;s, that keeps it within this size</source>
        <translation>Cada archivo se escribe con la calidad más alta, hasta la del control deslizante, que lo mantiene dentro de este tamaño</translation>
    </message>
    <message>
        <source>Size unit</source>
        <translation>Unidad de tamaño</translation>
    </message>
    <message>
        <source>When even the lowest quality is too large, the picture is made smaller until it fits</source>
        <translation>Si incluso la calidad más baja es demasiado grande, la imagen se reduce hasta que quepa</translation>
    </message>
</context>
<context>
    <name>vellumo::TrimRuleBox</name>
    <message>
        <source>Trim uniform borders</source>
        <translation>Recortar los bordes uniformes</translation>
    </message>
    <message>
        <source>Cut away borders of the corners&apos; colour first; the crop is made within what is left</source>
        <translation>Cortar primero los bordes del color de las esquinas; el recorte se hace en lo que queda</translation>
    </message>
    <message>
        <source>Trim tolerance</source>
        <translation>Tolerancia del recorte de bordes</translation>
    </message>
    <message>
        <source>How far a colour may be from the border&apos;s and still be cut, in percent of the full range (0 to 100)</source>
        <translation>Cuánto puede alejarse un color del del borde y aun así cortarse, en porcentaje del rango completo (0 a 100)</translation>
    </message>
    <message>
        <source>Pixels of the border kept on each side</source>
        <translation>Píxeles del borde que se conservan en cada lado</translation>
    </message>
    <message>
        <source>Trim margin</source>
        <translation>Margen del recorte de bordes</translation>
    </message>
    <message>
        <source>Tolerance:</source>
        <translation>Tolerancia:</translation>
    </message>
    <message>
        <source>Margin:</source>
        <translation>Margen:</translation>
    </message>
</context>
<context>
    <name>vellumo::ViewController</name>
    <message>
        <source>No web browser could be opened. The video tutorial is at %1</source>
        <translation>No se pudo abrir ningún navegador web. El tutorial en vídeo está en %1</translation>
    </message>
    <message>
        <source>The images could not be loaded.</source>
        <translation>No se pudieron cargar las imágenes.</translation>
    </message>
    <message>
        <source>Reset Crop</source>
        <translation>Restablecer recorte</translation>
    </message>
    <message>
        <source>Reset All Crops</source>
        <translation>Restablecer todos los recortes</translation>
    </message>
</context>
<context>
    <name>vellumo::WindowCropJob</name>
    <message>
        <source>Preparing…</source>
        <translation>Preparando…</translation>
    </message>
    <message>
        <source>The output folder %1 is a file, not a folder.</source>
        <translation>La carpeta de salida %1 es un archivo, no una carpeta.</translation>
    </message>
    <message>
        <source>The folder %1 could not be created: %2.</source>
        <translation>No se pudo crear la carpeta %1: %2.</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <translation>Deteniendo…</translation>
    </message>
    <message>
        <source>No file manager could be opened to show the folder %1.</source>
        <translation>No se pudo abrir ningún gestor de archivos para mostrar la carpeta %1.</translation>
    </message>
</context>
</TS>
