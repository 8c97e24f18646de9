<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>Workbench</source>
        <translation>Workbench</translation>
    </message>
</context>
<context>
    <name>Workbench::AboutCommand</name>
    <message>
        <source>&amp;About Workbench</source>
        <translation>&amp;Über Workbench</translation>
    </message>
    <message>
        <source>What the program is, its version and its licence</source>
        <translation>Was das Programm ist, seine Version und seine Lizenz</translation>
    </message>
</context>
<context>
    <name>Workbench::AboutDialog</name>
    <message>
        <source>About Workbench</source>
        <translation>Über Workbench</translation>
    </message>
    <message>
        <source>&lt;b&gt;Workbench %1&lt;/b&gt;</source>
        <translation>&lt;b&gt;Workbench %1&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Shows what the vlk_ui_base library is for: a command opens a mesh on another thread, a view shows it, tools and flyouts change it, popups stand beside what opened them, and every step can be undone.</source>
        <translation>Zeigt, wozu die Bibliothek vlk_ui_base da ist: Ein Befehl öffnet ein Netz auf einem anderen Thread, eine Ansicht zeigt es, Werkzeuge und Ausklappfenster ändern es, was aufklappt, steht neben dem, was es geöffnet hat, und jeder Schritt lässt sich rückgängig machen.</translation>
    </message>
    <message>
        <source>Licence: MIT. © 2026 The vlk_ui_base authors</source>
        <translation>Lizenz: MIT. © 2026 The vlk_ui_base authors</translation>
    </message>
    <message>
        <source>Runs with Qt %1</source>
        <translation>Läuft mit Qt %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Workbench::ClearMeasurementsCommand</name>
    <message>
        <source>&amp;Clear Measurements</source>
        <translation>Alle Me&amp;ssungen entfernen</translation>
    </message>
    <message>
        <source>Take the measured distances away</source>
        <translation>Alle gemessenen Abstände entfernen</translation>
    </message>
    <message>
        <source>Nothing has been measured.</source>
        <translation>Es wurde nichts gemessen.</translation>
    </message>
</context>
<context>
    <name>Workbench::CommandMenus</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Selection</source>
        <translation>Aus&amp;wahl</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>Werk&amp;zeuge</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Photograph</source>
        <translation>&amp;Foto</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
</context>
<context>
    <name>Workbench::DarkPaletteCommand</name>
    <message>
        <source>&amp;Dark Palette</source>
        <translation>Dunkle Far&amp;ben</translation>
    </message>
    <message>
        <source>Light text on a dark background</source>
        <translation>Heller Text auf dunklem Grund</translation>
    </message>
</context>
<context>
    <name>Workbench::DecimateMeshCommand</name>
    <message>
        <source>&amp;Halve Triangles</source>
        <translation>Dreiecke &amp;halbieren</translation>
    </message>
    <message>
        <source>Flat parts lose triangles first; edges, corners and open borders keep their shape. A feature for which a licence is needed.</source>
        <translation>Ebene Teile verlieren zuerst Dreiecke; Kanten, Ecken und offene Ränder behalten ihre Form. Eine Funktion, die eine Lizenz braucht.</translation>
    </message>
    <message>
        <source>Reducing</source>
        <translation>Verringern</translation>
    </message>
    <message>
        <source>Reduced the mesh from %1 to %2 triangles</source>
        <translation>Das Netz wurde von %1 auf %2 Dreiecke verringert</translation>
    </message>
    <message>
        <source>Paid feature: reduce the mesh to half of its triangles where that changes the surface least</source>
        <translation>Kostenpflichtig: das Netz auf die Hälfte der Dreiecke verringern, wo das die Oberfläche am wenigsten ändert</translation>
    </message>
</context>
<context>
    <name>Workbench::FailureNotice</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
</context>
<context>
    <name>Workbench::FindCommandCommand</name>
    <message>
        <source>&amp;Find Command…</source>
        <translation>Befehl &amp;finden…</translation>
    </message>
    <message>
        <source>Finds any command by a part of its name, and runs it</source>
        <translation>Findet jeden Befehl durch einen Teil seines Namens und führt ihn aus</translation>
    </message>
</context>
<context>
    <name>Workbench::InspectCommand</name>
    <message>
        <source>&amp;Inspect Commands…</source>
        <translation>Befehle &amp;untersuchen…</translation>
    </message>
    <message>
        <source>Shows which commands cannot be used, why and since when, and what was run</source>
        <translation>Zeigt, welche Befehle nicht verfügbar sind, warum und seit wann, und was ausgeführt wurde</translation>
    </message>
</context>
<context>
    <name>Workbench::KeyboardCommand</name>
    <message>
        <source>&amp;Keyboard Shortcuts…</source>
        <translation>&amp;Tastenkürzel…</translation>
    </message>
    <message>
        <source>Shows the keys of all commands, to change, print, or hand on</source>
        <translation>Zeigt die Tasten aller Befehle, zum Ändern, Drucken oder Weitergeben</translation>
    </message>
    <message>
        <source>&amp;Press Any Key…</source>
        <translation>&amp;Beliebige Taste drücken…</translation>
    </message>
    <message>
        <source>Shows what a key does here, and why others that want it do not get it</source>
        <translation>Zeigt, was eine Taste hier tut, und warum andere, die sie wollen, sie nicht bekommen</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Press Any Key</source>
        <translation>Beliebige Taste drücken</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Workbench::LengthUnitCommand</name>
    <message>
        <source>Show distances in %1; one unit of the mesh is a millimetre</source>
        <translation>Abstände in %1 zeigen; eine Einheit des Netzes ist ein Millimeter</translation>
    </message>
</context>
<context>
    <name>Workbench::MainWindow</name>
    <message>
        <source>Workbench</source>
        <translation>Workbench</translation>
    </message>
    <message>
        <source>%1[*] – Workbench</source>
        <translation>%1[*] – Workbench</translation>
    </message>
</context>
<context>
    <name>Workbench::MeasurementCommand</name>
    <message>
        <source>Remove &amp;Last Measurement</source>
        <translation>&amp;Letzte Messung entfernen</translation>
    </message>
    <message>
        <source>Take the distance away that was measured last</source>
        <translation>Den zuletzt gemessenen Abstand entfernen</translation>
    </message>
    <message>
        <source>C&amp;opy Measurements</source>
        <translation>Messungen &amp;kopieren</translation>
    </message>
    <message>
        <source>Put the measured distances on the clipboard, a line each</source>
        <translation>Die gemessenen Abstände in die Zwischenablage legen, jeden in einer Zeile</translation>
    </message>
    <message>
        <source>Nothing has been measured.</source>
        <translation>Es wurde nichts gemessen.</translation>
    </message>
</context>
<context>
    <name>Workbench::Measurements</name>
    <message>
        <source>%1 (before an edit)</source>
        <translation>%1 (vor einer Änderung)</translation>
    </message>
    <message>
        <source>Remove &amp;This Distance</source>
        <translation>&amp;Diesen Abstand entfernen</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshDocument</name>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshEdit</name>
    <message>
        <source>%1…</source>
        <translation>%1…</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshInfoCommand</name>
    <message>
        <source>Mesh &amp;Information…</source>
        <translation>Netz&amp;informationen…</translation>
    </message>
    <message>
        <source>Counts, size, surface area and volume of the mesh, and how long its edges are</source>
        <translation>Anzahlen, Größe, Oberfläche und Volumen des Netzes, und wie lang seine Kanten sind</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshInfoDialog</name>
    <message>
        <source>Mesh Information</source>
        <translation>Netzinformationen</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshLoader</name>
    <message>
        <source>The name of the file is empty.</source>
        <translation>Der Name der Datei ist leer.</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
    <message>
        <source>There is no permission to read the file.</source>
        <translation>Die Datei darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The format is not known; OBJ, PLY, STL, OFF, glTF and GLB are.</source>
        <translation>Das Format ist nicht bekannt; OBJ, PLY, STL, OFF, glTF und GLB sind es.</translation>
    </message>
    <message>
        <source>The file is damaged or incomplete.</source>
        <translation>Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>It contains no triangles.</source>
        <translation>Sie enthält keine Dreiecke.</translation>
    </message>
    <message>
        <source>The file is damaged: a vertex has a coordinate that is not a finite number.</source>
        <translation>Die Datei ist beschädigt: Ein Punkt hat eine Koordinate, die keine endliche Zahl ist.</translation>
    </message>
    <message>
        <source>The mesh does not fit into memory, or the file is damaged.</source>
        <translation>Das Netz passt nicht in den Speicher, oder die Datei ist beschädigt.</translation>
    </message>
    <message>
        <source>The file is damaged, reading it failed.</source>
        <translation>Die Datei ist beschädigt, sie ließ sich nicht lesen.</translation>
    </message>
    <message>
        <source>The program that reads meshes cannot be started.</source>
        <translation>Das Programm, das Netze liest, lässt sich nicht starten.</translation>
    </message>
    <message>
        <source>Loading was stopped.</source>
        <translation>Das Laden wurde beendet.</translation>
    </message>
    <message>
        <source>Cannot open “%1”. %2</source>
        <translation>„%1“ lässt sich nicht öffnen. %2</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshReport</name>
    <message>
        <source>Vertices</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation>Dreiecke</translation>
    </message>
    <message>
        <source>Edges</source>
        <translation>Kanten</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Lowest corner</source>
        <translation>Unterste Ecke</translation>
    </message>
    <message>
        <source>Highest corner</source>
        <translation>Oberste Ecke</translation>
    </message>
    <message>
        <source>Surface area</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>Watertight</source>
        <translation>Geschlossen</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Lengths of edges</source>
        <translation>Längen der Kanten</translation>
    </message>
    <message>
        <source>From %1 to %2, %3 on average</source>
        <translation>Von %1 bis %2, im Mittel %3</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshToolBars</name>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>Main toolbar</source>
        <translation>Hauptleiste</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshUser</name>
    <message>
        <source>No mesh is open.</source>
        <translation>Es ist kein Netz offen.</translation>
    </message>
    <message>
        <source>The mesh is being worked on.</source>
        <translation>Das Netz wird gerade bearbeitet.</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshView</name>
    <message>
        <source>Mesh view</source>
        <translation>Netzansicht</translation>
    </message>
    <message>
        <source>Distance: %1</source>
        <translation>Abstand: %1</translation>
    </message>
    <message>
        <source>Selected: %1</source>
        <translation>Ausgewählt: %1</translation>
    </message>
    <message>
        <source>Triangles: %1</source>
        <translation>Dreiecke: %1</translation>
    </message>
    <message>
        <source>Vertices: %1</source>
        <translation>Punkte: %1</translation>
    </message>
    <message>
        <source>Open a mesh (Ctrl+O) or drop a file here</source>
        <translation>Ein Netz öffnen (Strg+O) oder eine Datei hier ablegen</translation>
    </message>
    <message>
        <source>OBJ, PLY, STL, OFF, glTF</source>
        <translation>OBJ, PLY, STL, OFF, glTF</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshViewController</name>
    <message>
        <source>The page of the mesh is not shown.</source>
        <translation>Die Seite des Netzes ist nicht zu sehen.</translation>
    </message>
</context>
<context>
    <name>Workbench::MeshWriter</name>
    <message>
        <source>The format is not known; OBJ, PLY and STL are.</source>
        <translation>Das Format ist nicht bekannt; OBJ, PLY und STL sind es.</translation>
    </message>
    <message>
        <source>The folder does not exist.</source>
        <translation>Den Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
    <message>
        <source>There is no permission to change the file.</source>
        <translation>Die Datei darf nicht geändert werden.</translation>
    </message>
    <message>
        <source>There is no permission to write into the folder.</source>
        <translation>In den Ordner darf nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk.</source>
        <translation>Auf dem Datenträger ist nicht genug Platz.</translation>
    </message>
    <message>
        <source>It cannot be written: %1.</source>
        <translation>Es lässt sich nicht schreiben: %1.</translation>
    </message>
    <message>
        <source>Cannot save “%1”. %2</source>
        <translation>„%1“ lässt sich nicht speichern. %2</translation>
    </message>
    <message>
        <source>PLY, small and exact (*.ply)</source>
        <translation>PLY, klein und genau (*.ply)</translation>
    </message>
    <message>
        <source>OBJ, readable text (*.obj)</source>
        <translation>OBJ, lesbarer Text (*.obj)</translation>
    </message>
    <message>
        <source>STL, for printing (*.stl)</source>
        <translation>STL, zum Drucken (*.stl)</translation>
    </message>
</context>
<context>
    <name>Workbench::ModeCommand</name>
    <message>
        <source>&amp;Pick</source>
        <translation>&amp;Anklicken</translation>
    </message>
    <message>
        <source>Select triangles by clicks, connected parts by double clicks</source>
        <translation>Dreiecke durch Klicken auswählen, Zusammenhängendes durch Doppelklicken</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>&amp;Messen</translation>
    </message>
    <message>
        <source>Measure the distance of two points of the surface, by a drag or by two clicks</source>
        <translation>Den Abstand zweier Punkte der Oberfläche messen, durch Ziehen oder zwei Klicks</translation>
    </message>
    <message>
        <source>&amp;Rectangle Selection</source>
        <translation>&amp;Rechteckauswahl</translation>
    </message>
    <message>
        <source>Select the triangles that are seen within a rectangle</source>
        <translation>Die Dreiecke auswählen, die in einem Rechteck zu sehen sind</translation>
    </message>
</context>
<context>
    <name>Workbench::OpenMeshCommand</name>
    <message>
        <source>Meshes and photographs (%1 %2)</source>
        <translation>Netze und Fotos (%1 %2)</translation>
    </message>
    <message>
        <source>Meshes (%1)</source>
        <translation>Netze (%1)</translation>
    </message>
    <message>
        <source>Photographs (%1)</source>
        <translation>Fotos (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Show the mesh of an OBJ, PLY, STL, OFF or glTF file, or photographs</source>
        <translation>Das Netz einer OBJ-, PLY-, STL-, OFF- oder glTF-Datei zeigen, oder Fotos</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>%1 wird geöffnet…</translation>
    </message>
    <message>
        <source>Opening %1 and %2 more…</source>
        <translation>%1 und %2 weitere werden geöffnet…</translation>
    </message>
    <message>
        <source>Reading it failed.</source>
        <translation>Sie ließ sich nicht lesen.</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 ist geöffnet</translation>
    </message>
    <message>
        <source>Opened %1 of %2 files</source>
        <translation>%1 von %2 Dateien sind geöffnet</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
</context>
<context>
    <name>Workbench::OpenRecentCommand</name>
    <message>
        <source>No file was opened yet.</source>
        <translation>Es wurde noch keine Datei geöffnet.</translation>
    </message>
</context>
<context>
    <name>Workbench::Options</name>
    <message>
        <source>Shows triangle meshes (OBJ, PLY, STL, OFF, glTF and GLB) and photographs.</source>
        <translation>Zeigt Dreiecksnetze (OBJ, PLY, STL, OFF, glTF und GLB) und Fotos.</translation>
    </message>
    <message>
        <source>Open the files, save what the window shows as &lt;image&gt;, and end. The exit status is 1 when a file cannot be opened or the image cannot be written.</source>
        <translation>Öffnet die Dateien, speichert als &lt;Bild&gt;, was das Fenster zeigt, und endet. Der Status ist 1, wenn sich eine Datei nicht öffnen oder das Bild nicht schreiben lässt.</translation>
    </message>
    <message>
        <source>image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Size of the window, such as 1280x800.</source>
        <translation>Größe des Fensters, zum Beispiel 1280x800.</translation>
    </message>
    <message>
        <source>width&gt;x&lt;height</source>
        <translation>Breite&gt;x&lt;Höhe</translation>
    </message>
    <message>
        <source>Save when commands began and ended as &lt;file&gt;, in the Chrome trace-event format.</source>
        <translation>Speichert als &lt;Datei&gt;, wann Befehle begonnen und geendet haben, im Format „trace event“ von Chrome.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Show information in a web view where QtWebEngine is installed. The start takes longer.</source>
        <translation>Zeigt Informationen in einer Webansicht, wo QtWebEngine installiert ist. Der Start dauert länger.</translation>
    </message>
    <message>
        <source>The meshes and photographs to open; the last mesh is shown.</source>
        <translation>Die Netze und Fotos, die zu öffnen sind; das letzte Netz wird gezeigt.</translation>
    </message>
    <message>
        <source>--screenshot needs the name of an image file.
</source>
        <translation>--screenshot braucht den Namen einer Bilddatei.
</translation>
    </message>
    <message>
        <source>“%1” is not a size such as 1280x800.
</source>
        <translation>„%1“ ist keine Größe wie 1280x800.
</translation>
    </message>
    <message>
        <source>Write down what is done, as the session &lt;file&gt;, which people can read.</source>
        <translation>Schreibt mit, was getan wird, als Sitzung &lt;Datei&gt;, die man lesen kann.</translation>
    </message>
    <message>
        <source>Do the session &lt;file&gt; again, and end. The exit status is 1 when a step does not come out as it was recorded.</source>
        <translation>Wiederholt die Sitzung &lt;Datei&gt; und endet. Der Rückgabewert ist 1, wenn ein Schritt anders ausgeht als aufgezeichnet.</translation>
    </message>
    <message>
        <source>--record and --replay need the name of a session file.
</source>
        <translation>--record und --replay brauchen den Namen einer Sitzungsdatei.
</translation>
    </message>
    <message>
        <source>--screenshot goes with neither --record nor --replay.
</source>
        <translation>--screenshot geht weder mit --record noch mit --replay.
</translation>
    </message>
</context>
<context>
    <name>Workbench::PageStrip</name>
    <message>
        <source>Open pages</source>
        <translation>Offene Seiten</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>Netz</translation>
    </message>
    <message>
        <source>Mesh %1</source>
        <translation>Netz %1</translation>
    </message>
    <message>
        <source>Photograph %1</source>
        <translation>Foto %1</translation>
    </message>
</context>
<context>
    <name>Workbench::PaletteItem</name>
    <message>
        <source>Dark palette</source>
        <translation>Dunkle Farben</translation>
    </message>
    <message>
        <source>Light palette</source>
        <translation>Helle Farben</translation>
    </message>
</context>
<context>
    <name>Workbench::PhotoCommand</name>
    <message>
        <source>Zoom &amp;In	+</source>
        <translation>Ver&amp;größern	+</translation>
    </message>
    <message>
        <source>Show the photograph larger</source>
        <translation>Das Foto größer zeigen</translation>
    </message>
    <message>
        <source>Zoom &amp;Out	-</source>
        <translation>Ver&amp;kleinern	-</translation>
    </message>
    <message>
        <source>Show the photograph smaller</source>
        <translation>Das Foto kleiner zeigen</translation>
    </message>
    <message>
        <source>Original &amp;Size	O</source>
        <translation>&amp;Originalgröße	O</translation>
    </message>
    <message>
        <source>Show each pixel of the photograph on one of the screen</source>
        <translation>Jedes Pixel des Fotos auf einem des Bildschirms zeigen</translation>
    </message>
    <message>
        <source>&amp;Fit in View	F</source>
        <translation>&amp;Einpassen	F</translation>
    </message>
    <message>
        <source>Show all of the photograph</source>
        <translation>Das ganze Foto zeigen</translation>
    </message>
    <message>
        <source>&amp;Previous Photograph	&lt;</source>
        <translation>&amp;Voriges Foto	&lt;</translation>
    </message>
    <message>
        <source>Show the photograph before this one</source>
        <translation>Das Foto vor diesem zeigen</translation>
    </message>
    <message>
        <source>&amp;Next Photograph	&gt;</source>
        <translation>&amp;Nächstes Foto	&gt;</translation>
    </message>
    <message>
        <source>Show the photograph after this one</source>
        <translation>Das Foto nach diesem zeigen</translation>
    </message>
    <message>
        <source>&amp;Close Photograph</source>
        <translation>Foto &amp;schließen</translation>
    </message>
    <message>
        <source>Take the photograph out of the row; its file stays</source>
        <translation>Das Foto aus der Reihe nehmen; seine Datei bleibt</translation>
    </message>
</context>
<context>
    <name>Workbench::PhotoDocument</name>
    <message>
        <source>It does not fit into memory.</source>
        <translation>Es passt nicht in den Speicher.</translation>
    </message>
</context>
<context>
    <name>Workbench::PhotoLoader</name>
    <message>
        <source>The file does not exist.</source>
        <translation>Die Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>It is not a file.</source>
        <translation>Es ist keine Datei.</translation>
    </message>
    <message>
        <source>There is no permission to read the file.</source>
        <translation>Die Datei darf nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>It is no picture of a known format.</source>
        <translation>Es ist kein Bild eines bekannten Formats.</translation>
    </message>
    <message>
        <source>The file is damaged or incomplete.</source>
        <translation>Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>The picture is too large: %1 × %2 pixels.</source>
        <translation>Das Bild ist zu groß: %1 × %2 Pixel.</translation>
    </message>
    <message>
        <source>Cannot open “%1”. %2</source>
        <translation>„%1“ lässt sich nicht öffnen. %2</translation>
    </message>
</context>
<context>
    <name>Workbench::PhotoView</name>
    <message>
        <source>Photograph view</source>
        <translation>Fotoansicht</translation>
    </message>
    <message>
        <source>Opening %1… %2 %</source>
        <translation>%1 wird geöffnet… %2 %</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 × %2 px</source>
        <translation>%1 × %2 px</translation>
    </message>
    <message>
        <source>%1 %</source>
        <comment>zoom</comment>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Open photographs (Ctrl+O) or drop them here</source>
        <translation>Fotos öffnen (Strg+O) oder hier ablegen</translation>
    </message>
    <message>
        <source>JPEG, PNG and others</source>
        <translation>JPEG, PNG und andere</translation>
    </message>
</context>
<context>
    <name>Workbench::PhotoViewController</name>
    <message>
        <source>The page of the photographs is not shown.</source>
        <translation>Die Seite der Fotos ist nicht zu sehen.</translation>
    </message>
    <message>
        <source>No photograph is open.</source>
        <translation>Es ist kein Foto offen.</translation>
    </message>
    <message>
        <source>This is the last photograph.</source>
        <translation>Dies ist das letzte Foto.</translation>
    </message>
    <message>
        <source>This is the first photograph.</source>
        <translation>Dies ist das erste Foto.</translation>
    </message>
    <message>
        <source>The photograph cannot be zoomed further.</source>
        <translation>Weiter lässt sich das Foto nicht vergrößern oder verkleinern.</translation>
    </message>
</context>
<context>
    <name>Workbench::PlacementOverlay</name>
    <message>
        <source>Placement of popups</source>
        <translation>Platzierung von Aufklappfenstern</translation>
    </message>
    <message>
        <source>no layout</source>
        <translation>keine Form</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>above</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>below</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>%1 px %2</source>
        <comment>beyond an edge</comment>
        <translation>%1 px %2</translation>
    </message>
    <message>
        <source>covers</source>
        <translation>verdeckt</translation>
    </message>
    <message>
        <source>taken</source>
        <translation>genommen</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>number of a place</comment>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>Workbench::PlacementOverlayCommand</name>
    <message>
        <source>Placement &amp;Overlay</source>
        <translation>Platzierun&amp;g zeigen</translation>
    </message>
    <message>
        <source>Draw every place that was tried for the last tooltip or flyout</source>
        <translation>Jeden Platz zeichnen, der für das letzte Aufklappfenster versucht wurde</translation>
    </message>
</context>
<context>
    <name>Workbench::PrintPlacementCommand</name>
    <message>
        <source>Pr&amp;int Placement</source>
        <translation>Platzierung a&amp;usgeben</translation>
    </message>
    <message>
        <source>Print to the terminal why the last tooltip or flyout stands where it stands</source>
        <translation>Im Terminal ausgeben, warum das letzte Aufklappfenster steht, wo es steht</translation>
    </message>
</context>
<context>
    <name>Workbench::QuitCommand</name>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
</context>
<context>
    <name>Workbench::RedoCommand</name>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Do again what was taken back</source>
        <translation>Wieder tun, was rückgängig gemacht wurde</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>There is nothing to do again.</source>
        <translation>Es gibt nichts zu wiederholen.</translation>
    </message>
</context>
<context>
    <name>Workbench::ResetLayoutCommand</name>
    <message>
        <source>Reset &amp;Window</source>
        <translation>F&amp;enster zurücksetzen</translation>
    </message>
    <message>
        <source>Put the window, its pages and the unit back as they were at first</source>
        <translation>Fenster, Seiten und Einheit wieder so stellen, wie sie anfangs waren</translation>
    </message>
</context>
<context>
    <name>Workbench::ResetViewCommand</name>
    <message>
        <source>&amp;Reset View</source>
        <translation>Ansicht &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Show all of the mesh from the front</source>
        <translation>Das ganze Netz von vorn zeigen</translation>
    </message>
</context>
<context>
    <name>Workbench::SaveMeshCommand</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the mesh to its file</source>
        <translation>Das Netz in seine Datei speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Save the mesh to another file, and go on with that</source>
        <translation>Das Netz in eine andere Datei speichern und mit ihr weiterarbeiten</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren…</translation>
    </message>
    <message>
        <source>Save a copy of the mesh as OBJ, PLY or STL</source>
        <translation>Eine Kopie des Netzes als OBJ, PLY oder STL speichern</translation>
    </message>
    <message>
        <source>The mesh is being saved.</source>
        <translation>Das Netz wird gerade gespeichert.</translation>
    </message>
    <message>
        <source>There are no changes to save.</source>
        <translation>Es gibt keine Änderungen zu speichern.</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>%1 wird gespeichert…</translation>
    </message>
</context>
<context>
    <name>Workbench::SaveScreenshotCommand</name>
    <message>
        <source>Save S&amp;creenshot…</source>
        <translation>Bil&amp;d speichern…</translation>
    </message>
    <message>
        <source>Save the picture of the mesh to an image file</source>
        <translation>Das Bild des Netzes in eine Bilddatei speichern</translation>
    </message>
    <message>
        <source>A picture is being saved.</source>
        <translation>Ein Bild wird gerade gespeichert.</translation>
    </message>
    <message>
        <source>Saving %1…</source>
        <translation>%1 wird gespeichert…</translation>
    </message>
    <message>
        <source>The format is not known; PNG and JPEG are.</source>
        <translation>Das Format ist nicht bekannt; PNG und JPEG sind es.</translation>
    </message>
    <message>
        <source>It cannot be written: %1.</source>
        <translation>Es lässt sich nicht schreiben: %1.</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 ist gespeichert</translation>
    </message>
    <message>
        <source>Cannot save “%1”. %2</source>
        <translation>„%1“ lässt sich nicht speichern. %2</translation>
    </message>
    <message>
        <source>Save Screenshot</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>PNG image (*.png)</source>
        <translation>PNG-Bild (*.png)</translation>
    </message>
    <message>
        <source>JPEG image (*.jpg *.jpeg)</source>
        <translation>JPEG-Bild (*.jpg *.jpeg)</translation>
    </message>
    <message>
        <source>screenshot</source>
        <translation>Bild</translation>
    </message>
</context>
<context>
    <name>Workbench::SelectionCommand</name>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Select all of the mesh</source>
        <translation>Das ganze Netz auswählen</translation>
    </message>
    <message>
        <source>&amp;Invert Selection</source>
        <translation>Auswahl &amp;umkehren</translation>
    </message>
    <message>
        <source>Select what is not selected, and nothing else</source>
        <translation>Auswählen, was nicht ausgewählt ist, und sonst nichts</translation>
    </message>
    <message>
        <source>Select &amp;None</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message>
        <source>Select nothing</source>
        <translation>Nichts auswählen</translation>
    </message>
    <message>
        <source>&amp;Grow Selection</source>
        <translation>Auswahl &amp;erweitern</translation>
    </message>
    <message>
        <source>Add the triangles around what is selected</source>
        <translation>Die Dreiecke um das Ausgewählte hinzunehmen</translation>
    </message>
    <message>
        <source>Select &amp;Connected</source>
        <translation>&amp;Zusammenhängendes auswählen</translation>
    </message>
    <message>
        <source>Add everything that hangs together with what is selected</source>
        <translation>Alles hinzunehmen, was mit dem Ausgewählten zusammenhängt</translation>
    </message>
    <message>
        <source>&amp;Delete Selection</source>
        <translation>Auswahl &amp;löschen</translation>
    </message>
    <message>
        <source>Delete the selected triangles</source>
        <translation>Die ausgewählten Dreiecke löschen</translation>
    </message>
    <message>
        <source>Nothing is selected while distances are measured.</source>
        <translation>Solange Abstände gemessen werden, wird nichts ausgewählt.</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>Es ist nichts ausgewählt.</translation>
    </message>
</context>
<context>
    <name>Workbench::SessionRun</name>
    <message numerus="yes">
        <source>%n step(s) replayed
</source>
        <translation>
            <numerusform>ein Schritt wiederholt
</numerusform>
            <numerusform>%n Schritte wiederholt
</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
    <message>
        <source>The session is recorded no more: %1</source>
        <translation>Die Sitzung wird nicht weiter aufgezeichnet: %1</translation>
    </message>
    <message>
        <source>The program ended before the session did.</source>
        <translation>Das Programm endete vor der Sitzung.</translation>
    </message>
</context>
<context>
    <name>Workbench::SetPivotCommand</name>
    <message>
        <source>Set Rotation &amp;Centre</source>
        <translation>&amp;Drehpunkt setzen</translation>
    </message>
    <message>
        <source>Click the point of the mesh that the view shall turn around</source>
        <translation>Den Punkt des Netzes anklicken, um den sich die Ansicht drehen soll</translation>
    </message>
    <message>
        <source>The camera then turns around that point, which comes to the middle of the view. Drags with the right button turn the view meanwhile.</source>
        <translation>Die Kamera dreht sich dann um diesen Punkt, der in die Mitte der Ansicht kommt. Ziehen mit der rechten Taste dreht die Ansicht auch währenddessen.</translation>
    </message>
    <message>
        <source>Click the point to turn around. Escape cancels.</source>
        <translation>Klicken Sie den Punkt an, um den gedreht werden soll. Escape bricht ab.</translation>
    </message>
</context>
<context>
    <name>Workbench::ShadingCommand</name>
    <message>
        <source>&amp;Smooth</source>
        <translation>&amp;Glatt</translation>
    </message>
    <message>
        <source>Show a smooth surface</source>
        <translation>Eine glatte Oberfläche zeigen</translation>
    </message>
    <message>
        <source>&amp;Flat</source>
        <translation>&amp;Eben</translation>
    </message>
    <message>
        <source>Show each face of the mesh</source>
        <translation>Jede Fläche des Netzes zeigen</translation>
    </message>
    <message>
        <source>Flat with &amp;Edges</source>
        <translation>Eben mit &amp;Kanten</translation>
    </message>
    <message>
        <source>Show each face of the mesh and the edges between them</source>
        <translation>Jede Fläche des Netzes und die Kanten dazwischen zeigen</translation>
    </message>
</context>
<context>
    <name>Workbench::ShowPageCommand</name>
    <message>
        <source>&amp;Mesh</source>
        <translation>&amp;Netz</translation>
    </message>
    <message>
        <source>Go to the page of the mesh</source>
        <translation>Zur Seite des Netzes gehen</translation>
    </message>
    <message>
        <source>&amp;Photographs</source>
        <translation>&amp;Fotos</translation>
    </message>
    <message>
        <source>Go to the page of the photographs</source>
        <translation>Zur Seite der Fotos gehen</translation>
    </message>
</context>
<context>
    <name>Workbench::SmoothFlyoutCommand</name>
    <message>
        <source>Smooth &amp;with Options…</source>
        <translation>Glätten mit &amp;Optionen…</translation>
    </message>
    <message>
        <source>Choose how much to smooth, and see it at once</source>
        <translation>Wählen, wie sehr geglättet wird, und es gleich sehen</translation>
    </message>
    <message>
        <source>The mesh changes only when the values are applied. With triangles selected, the others stay exactly as they are.</source>
        <translation>Das Netz ändert sich erst, wenn die Werte angewendet werden. Sind Dreiecke ausgewählt, bleiben die anderen genau, wie sie sind.</translation>
    </message>
    <message>
        <source>Smooth</source>
        <translation>Glätten</translation>
    </message>
    <message>
        <source>Smoothing</source>
        <translation>Glätten</translation>
    </message>
    <message>
        <source>Smoothed the mesh</source>
        <translation>Das Netz ist geglättet</translation>
    </message>
</context>
<context>
    <name>Workbench::SmoothMeshCommand</name>
    <message>
        <source>&amp;Smooth Mesh</source>
        <translation>Netz &amp;glätten</translation>
    </message>
    <message>
        <source>Smooth noise away, everywhere or where triangles are selected</source>
        <translation>Rauschen glätten, überall oder wo Dreiecke ausgewählt sind</translation>
    </message>
    <message>
        <source>Smoothing</source>
        <translation>Glätten</translation>
    </message>
    <message>
        <source>Smoothed the mesh</source>
        <translation>Das Netz ist geglättet</translation>
    </message>
</context>
<context>
    <name>Workbench::SmoothPanel</name>
    <message>
        <source>&amp;Preview</source>
        <translation>&amp;Vorschau</translation>
    </message>
    <message>
        <source>&amp;Iterations</source>
        <translation>&amp;Durchgänge</translation>
    </message>
    <message>
        <source>&amp;Strength</source>
        <translation>&amp;Stärke</translation>
    </message>
    <message>
        <source>Iterations</source>
        <translation>Durchgänge</translation>
    </message>
    <message>
        <source>Strength</source>
        <translation>Stärke</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Smoothing</source>
        <translation>Glätten</translation>
    </message>
</context>
<context>
    <name>Workbench::ToolBarGroups</name>
    <message>
        <source>Smooth</source>
        <translation>Glätten</translation>
    </message>
    <message>
        <source>Smooth the mesh, at once or step by step</source>
        <translation>Das Netz glätten, auf einmal oder Schritt für Schritt</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Select without pointing at anything</source>
        <translation>Auswählen, ohne auf etwas zu zeigen</translation>
    </message>
</context>
<context>
    <name>Workbench::UndoCommand</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Take back the last step</source>
        <translation>Den letzten Schritt rückgängig machen</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>There is nothing to undo.</source>
        <translation>Es gibt nichts rückgängig zu machen.</translation>
    </message>
</context>
<context>
    <name>Workbench::UnitButton</name>
    <message>
        <source>Unit of distances</source>
        <translation>Einheit der Abstände</translation>
    </message>
    <message>
        <source>Unit of distances: %1</source>
        <translation>Einheit der Abstände: %1</translation>
    </message>
</context>
<context>
    <name>Workbench::UnsavedChanges</name>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>“%1” has changes that are not saved.</source>
        <translation>„%1“ hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>“%1” is being worked on.</source>
        <translation>„%1“ wird gerade bearbeitet.</translation>
    </message>
    <message>
        <source>The work on the mesh is not finished. What it has done so far is lost.</source>
        <translation>Die Arbeit am Netz ist nicht fertig. Was sie bisher getan hat, geht verloren.</translation>
    </message>
    <message>
        <source>Without saving they are lost when the program ends.</source>
        <translation>Ohne zu speichern gehen sie verloren, wenn das Programm endet.</translation>
    </message>
    <message>
        <source>Without saving they are lost when another mesh is opened.</source>
        <translation>Ohne zu speichern gehen sie verloren, wenn ein anderes Netz geöffnet wird.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Stop and Quit</source>
        <translation>Abbrechen und &amp;beenden</translation>
    </message>
    <message>
        <source>&amp;Stop and Open</source>
        <translation>Abbrechen und ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Zurück</translation>
    </message>
</context>
<context>
    <name>Workbench::VolumePanel</name>
    <message>
        <source>Right click for other units</source>
        <translation>Rechtsklick für andere Einheiten</translation>
    </message>
</context>
<context>
    <name>Workbench::VolumePanelCommand</name>
    <message>
        <source>Print &amp;Volume</source>
        <translation>Druck&amp;volumen</translation>
    </message>
    <message>
        <source>Show how much material printing the mesh takes, with the supports it needs</source>
        <translation>Zeigen, wie viel Material der Druck des Netzes braucht, mit den nötigen Stützen</translation>
    </message>
</context>
<context>
    <name>Workbench::WorkbenchAppManager</name>
    <message>
        <source>Left mouse button</source>
        <translation>Linke Maustaste</translation>
    </message>
    <message>
        <source>Shading</source>
        <translation>Schattierung</translation>
    </message>
    <message>
        <source>&amp;Shading</source>
        <translation>&amp;Schattierung</translation>
    </message>
    <message>
        <source>Unit of distances</source>
        <translation>Einheit der Abstände</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Einheit</translation>
    </message>
    <message>
        <source>&amp;Millimetres</source>
        <translation>&amp;Millimeter</translation>
    </message>
    <message>
        <source>&amp;Centimetres</source>
        <translation>&amp;Zentimeter</translation>
    </message>
    <message>
        <source>M&amp;etres</source>
        <translation>M&amp;eter</translation>
    </message>
    <message>
        <source>&amp;Inches</source>
        <translation>Z&amp;oll</translation>
    </message>
    <message>
        <source>&amp;Feet</source>
        <translation>&amp;Fuß</translation>
    </message>
    <message>
        <source>&amp;Next Shading</source>
        <translation>Näc&amp;hste Schattierung</translation>
    </message>
    <message>
        <source>Show the mesh in one shading after another</source>
        <translation>Das Netz in einer Schattierung nach der anderen zeigen</translation>
    </message>
    <message>
        <source>Recent files</source>
        <translation>Zuletzt geöffnete Dateien</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>S&amp;prache</translation>
    </message>
</context>
</TS>
