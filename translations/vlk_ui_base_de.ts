<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Vela::Common::Units</name>
    <message>
        <source>micrometres</source>
        <translation>Mikrometer</translation>
    </message>
    <message>
        <source>µm</source>
        <translation>µm</translation>
    </message>
    <message>
        <source>millimetres</source>
        <translation>Millimeter</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>centimetres</source>
        <translation>Zentimeter</translation>
    </message>
    <message>
        <source>cm</source>
        <translation>cm</translation>
    </message>
    <message>
        <source>metres</source>
        <translation>Meter</translation>
    </message>
    <message>
        <source>m</source>
        <translation>m</translation>
    </message>
    <message>
        <source>kilometres</source>
        <translation>Kilometer</translation>
    </message>
    <message>
        <source>km</source>
        <translation>km</translation>
    </message>
    <message>
        <source>inches</source>
        <translation>Zoll</translation>
    </message>
    <message>
        <source>in</source>
        <translation>in</translation>
    </message>
    <message>
        <source>feet</source>
        <translation>Fuß</translation>
    </message>
    <message>
        <source>ft</source>
        <translation>ft</translation>
    </message>
    <message>
        <source>yards</source>
        <translation>Yard</translation>
    </message>
    <message>
        <source>yd</source>
        <translation>yd</translation>
    </message>
    <message>
        <source>square millimetres</source>
        <translation>Quadratmillimeter</translation>
    </message>
    <message>
        <source>mm²</source>
        <translation>mm²</translation>
    </message>
    <message>
        <source>square centimetres</source>
        <translation>Quadratzentimeter</translation>
    </message>
    <message>
        <source>cm²</source>
        <translation>cm²</translation>
    </message>
    <message>
        <source>square metres</source>
        <translation>Quadratmeter</translation>
    </message>
    <message>
        <source>m²</source>
        <translation>m²</translation>
    </message>
    <message>
        <source>square inches</source>
        <translation>Quadratzoll</translation>
    </message>
    <message>
        <source>in²</source>
        <translation>in²</translation>
    </message>
    <message>
        <source>square feet</source>
        <translation>Quadratfuß</translation>
    </message>
    <message>
        <source>ft²</source>
        <translation>ft²</translation>
    </message>
    <message>
        <source>cubic millimetres</source>
        <translation>Kubikmillimeter</translation>
    </message>
    <message>
        <source>mm³</source>
        <translation>mm³</translation>
    </message>
    <message>
        <source>cubic centimetres</source>
        <translation>Kubikzentimeter</translation>
    </message>
    <message>
        <source>cm³</source>
        <translation>cm³</translation>
    </message>
    <message>
        <source>cubic metres</source>
        <translation>Kubikmeter</translation>
    </message>
    <message>
        <source>m³</source>
        <translation>m³</translation>
    </message>
    <message>
        <source>millilitres</source>
        <translation>Milliliter</translation>
    </message>
    <message>
        <source>ml</source>
        <translation>ml</translation>
    </message>
    <message>
        <source>litres</source>
        <translation>Liter</translation>
    </message>
    <message>
        <source>l</source>
        <translation>l</translation>
    </message>
    <message>
        <source>cubic inches</source>
        <translation>Kubikzoll</translation>
    </message>
    <message>
        <source>in³</source>
        <translation>in³</translation>
    </message>
    <message>
        <source>cubic feet</source>
        <translation>Kubikfuß</translation>
    </message>
    <message>
        <source>ft³</source>
        <translation>ft³</translation>
    </message>
</context>
<context>
    <name>Vela::License::LicenseDialog</name>
    <message>
        <source>License</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>License of %1</source>
        <translation>Lizenz für %1</translation>
    </message>
    <message>
        <source>Product page</source>
        <translation>Produktseite</translation>
    </message>
    <message>
        <source>License &amp;key:</source>
        <translation>Lizenz&amp;schlüssel:</translation>
    </message>
    <message>
        <source>License key</source>
        <translation>Lizenzschlüssel</translation>
    </message>
    <message>
        <source>Paste or type your key</source>
        <translation>Schlüssel einfügen oder eingeben</translation>
    </message>
    <message>
        <source>Result of the activation</source>
        <translation>Ergebnis der Aktivierung</translation>
    </message>
    <message>
        <source>&amp;Activate</source>
        <translation>&amp;Aktivieren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Thank you. Your license key has been activated.</source>
        <translation>Danke. Ihr Lizenzschlüssel ist aktiviert.</translation>
    </message>
    <message>
        <source>The product is licensed. All features are available.</source>
        <translation>Das Produkt ist lizenziert. Alle Funktionen sind verfügbar.</translation>
    </message>
    <message>
        <source>You are using a trial. Paid features can be tried.</source>
        <translation>Dies ist eine Testversion. Kostenpflichtige Funktionen können ausprobiert werden.</translation>
    </message>
    <message>
        <source>You are using a trial. Days left: %1.</source>
        <translation>Dies ist eine Testversion. Verbleibende Tage: %1.</translation>
    </message>
    <message>
        <source>There is no license. Paid features are locked.</source>
        <translation>Es gibt keine Lizenz. Kostenpflichtige Funktionen sind gesperrt.</translation>
    </message>
    <message>
        <source>Buy a license on the product page</source>
        <translation>Lizenz auf der Produktseite kaufen</translation>
    </message>
</context>
<context>
    <name>Vela::License::LicenseService</name>
    <message>
        <source>The product is licensed already.</source>
        <translation>Das Produkt ist schon lizenziert.</translation>
    </message>
    <message>
        <source>Paid Feature</source>
        <translation>Kostenpflichtige Funktion</translation>
    </message>
    <message>
        <source>Please enter a license key.</source>
        <translation>Bitte geben Sie einen Lizenzschlüssel ein.</translation>
    </message>
    <message>
        <source>The license key was not accepted.</source>
        <translation>Der Lizenzschlüssel wurde nicht angenommen.</translation>
    </message>
    <message>
        <source>“%1” is a paid feature.</source>
        <translation>„%1“ ist eine kostenpflichtige Funktion.</translation>
    </message>
    <message>
        <source>Do you want to use it as part of your trial?</source>
        <translation>Möchten Sie sie im Rahmen Ihrer Testversion benutzen?</translation>
    </message>
    <message>
        <source>It needs a license. Do you want to activate one now?</source>
        <translation>Sie braucht eine Lizenz. Möchten Sie jetzt eine aktivieren?</translation>
    </message>
    <message>
        <source>&amp;Activate…</source>
        <translation>&amp;Aktivieren…</translation>
    </message>
</context>
<context>
    <name>Vela::Resource::String</name>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Dynamic Tools</source>
        <translation>Wechselnde Werkzeuge</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>k. A.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::BusyIndicator</name>
    <message>
        <source>Working</source>
        <translation>In Arbeit</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::CmdsViewController</name>
    <message>
        <source>%1…</source>
        <translation>%1…</translation>
    </message>
    <message>
        <source>%1 was cancelled.</source>
        <translation>%1 wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::CommandBase</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>Es ist nicht genug Speicher da.</translation>
    </message>
    <message>
        <source>unknown error</source>
        <translation>unbekannter Fehler</translation>
    </message>
    <message>
        <source>&quot;%1&quot; failed: %2</source>
        <translation>„%1“ ist fehlgeschlagen: %2</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::CommandCause</name>
    <message>
        <source>&quot;%1&quot; is running.</source>
        <translation>„%1“ läuft.</translation>
    </message>
    <message>
        <source>The panel &quot;%1&quot; is open.</source>
        <translation>Das Fenster von „%1“ ist offen.</translation>
    </message>
    <message>
        <source>Something else is under way.</source>
        <translation>Etwas anderes ist im Gange.</translation>
    </message>
    <message>
        <source>The group &quot;%1&quot; is not available.</source>
        <translation>Die Gruppe „%1“ ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>Not available at present.</source>
        <translation>Zurzeit nicht verfügbar.</translation>
    </message>
    <message>
        <source>This is a paid feature; it needs a licence.</source>
        <translation>Dies ist eine kostenpflichtige Funktion; sie braucht eine Lizenz.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::CommandInspector</name>
    <message>
        <source>It can be used.</source>
        <translation>Es ist verfügbar.</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Läufe</translation>
    </message>
    <message>
        <source>&amp;Copy as Text</source>
        <translation>Als Text &amp;kopieren</translation>
    </message>
    <message>
        <source>Since %1.</source>
        <translation>Seit %1.</translation>
    </message>
    <message>
        <source>Point at anything in the program.</source>
        <translation>Zeigen Sie auf irgendetwas im Programm.</translation>
    </message>
    <message>
        <source>What is shown</source>
        <translation>Was gezeigt wird</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Schichten</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Views</source>
        <translation>Ansichten</translation>
    </message>
    <message>
        <source>Bars and Groups</source>
        <translation>Leisten und Gruppen</translation>
    </message>
    <message>
        <source>%1 runs</source>
        <translation>%1 läuft</translation>
    </message>
    <message>
        <source>%1 is open</source>
        <translation>%1 ist offen</translation>
    </message>
    <message>
        <source>not said</source>
        <translation>nicht gesagt</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>middle</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>wheel</source>
        <translation>Rad</translation>
    </message>
    <message>
        <source>operates</source>
        <translation>arbeitet</translation>
    </message>
    <message>
        <source>active</source>
        <translation>aktiv</translation>
    </message>
    <message>
        <source>suspended</source>
        <translation>ruht</translation>
    </message>
    <message>
        <source>inactive</source>
        <translation>inaktiv</translation>
    </message>
    <message>
        <source>put there by the application or a layout</source>
        <translation>von der Anwendung oder einem Layout dorthin gesetzt</translation>
    </message>
    <message>
        <source>at its edge</source>
        <translation>an seinem Rand</translation>
    </message>
    <message>
        <source>%1, %2 % slid out</source>
        <translation>%1, zu %2 % hinausgeglitten</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>zu</translation>
    </message>
    <message>
        <source>open</source>
        <translation>offen</translation>
    </message>
    <message>
        <source>bar</source>
        <translation>Leiste</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>versteckt</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>gezeigt</translation>
    </message>
    <message>
        <source>menu</source>
        <translation>Menü</translation>
    </message>
    <message numerus="yes">
        <source>of %n button(s), last of %1</source>
        <translation>
            <numerusform>von einer Taste, zuletzt von %1</numerusform>
            <numerusform>von %n Tasten, zuletzt von %1</numerusform>
        </translation>
    </message>
    <message>
        <source>none</source>
        <translation>keins</translation>
    </message>
    <message>
        <source>without a view</source>
        <translation>ohne Ansicht</translation>
    </message>
    <message>
        <source>Commands of</source>
        <translation>Befehle von</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Schicht</translation>
    </message>
    <message>
        <source>Holder</source>
        <translation>Halter</translation>
    </message>
    <message>
        <source>Ends with</source>
        <translation>Endet mit</translation>
    </message>
    <message>
        <source>Names</source>
        <translation>Nennt</translation>
    </message>
    <message>
        <source>its hold</source>
        <translation>seinem Griff</translation>
    </message>
    <message>
        <source>Tools of</source>
        <translation>Werkzeuge von</translation>
    </message>
    <message>
        <source>Button</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Werkzeug</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Base view</source>
        <translation>Grundansicht</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Presented by</source>
        <translation>Gezeigt von</translation>
    </message>
    <message>
        <source>Stands</source>
        <translation>Steht</translation>
    </message>
    <message>
        <source>covered</source>
        <translation>verdeckt</translation>
    </message>
    <message>
        <source>in front</source>
        <translation>vorn</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>enabled</source>
        <translation>benutzbar</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>grau</translation>
    </message>
    <message>
        <source>It belongs to %1.</source>
        <translation>Er gehört zu %1.</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>It is shown by %1.</source>
        <translation>Er wird von %1 gezeigt.</translation>
    </message>
    <message>
        <source>the bar rests at %1</source>
        <translation>die Leiste ruht bei %1</translation>
    </message>
    <message>
        <source>%1 opens at %2.</source>
        <translation>%1 öffnet sich an %2.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::CommandPalette</name>
    <message>
        <source>Find a command</source>
        <translation>Einen Befehl finden</translation>
    </message>
    <message>
        <source>Find Command…</source>
        <translation>Befehl finden…</translation>
    </message>
    <message>
        <source>Name of the command</source>
        <translation>Name des Befehls</translation>
    </message>
    <message>
        <source>Commands found</source>
        <translation>Gefundene Befehle</translation>
    </message>
    <message>
        <source>No command is called like that.</source>
        <translation>So heißt kein Befehl.</translation>
    </message>
    <message>
        <source>Do not run &quot;%1&quot; any more</source>
        <translation>„%1“ nicht mehr ausführen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; runs as soon as it is available.</source>
        <translation>„%1“ läuft, sobald es verfügbar ist.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::CommandPaletteModel</name>
    <message>
        <source>This command is gone.</source>
        <translation>Diesen Befehl gibt es nicht mehr.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::DialogEx</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Do not ask again</source>
        <translation>Nicht mehr fragen</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::DialogMessage</name>
    <message>
        <source>&amp;Details</source>
        <translation>&amp;Einzelheiten</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::FlyoutBase</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::GreyCommandModel</name>
    <message>
        <source>It is about to be enabled.</source>
        <translation>Es wird gleich verfügbar.</translation>
    </message>
    <message>
        <source>Cannot be used</source>
        <translation>Nicht verfügbar</translation>
    </message>
    <message>
        <source>Why</source>
        <translation>Warum</translation>
    </message>
    <message>
        <source>Since</source>
        <translation>Seit</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::InfoPanel</name>
    <message>
        <source>Information</source>
        <translation>Informationen</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::KeyProbe</name>
    <message>
        <source>The focus</source>
        <translation>Der Fokus</translation>
    </message>
    <message>
        <source>Panel</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>What is left</source>
        <translation>Was übrig bleibt</translation>
    </message>
    <message>
        <source>gets it</source>
        <translation>bekommt sie</translation>
    </message>
    <message>
        <source>It means several things: nobody gets it.</source>
        <translation>Sie bedeutet mehreres: Niemand bekommt sie.</translation>
    </message>
    <message>
        <source>Nobody takes it.</source>
        <translation>Niemand nimmt sie.</translation>
    </message>
    <message>
        <source>Press any key.</source>
        <translation>Drücken Sie eine beliebige Taste.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::KeyTaker</name>
    <message>
        <source>The focus is not in it.</source>
        <translation>Der Fokus ist nicht darin.</translation>
    </message>
    <message>
        <source>It wants more keys after these.</source>
        <translation>Es erwartet nach diesen weitere Tasten.</translation>
    </message>
    <message>
        <source>a shortcut of the window</source>
        <translation>ein Kürzel des Fensters</translation>
    </message>
    <message>
        <source>It is disabled.</source>
        <translation>Es ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>There is no toolbar.</source>
        <translation>Es gibt keine Werkzeugleiste.</translation>
    </message>
    <message>
        <source>Where it stands is not in sight.</source>
        <translation>Wo es steht, ist nicht zu sehen.</translation>
    </message>
    <message>
        <source>Where it stands is disabled.</source>
        <translation>Wo es steht, ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>Another view lies over its own.</source>
        <translation>Eine andere Ansicht liegt über seiner.</translation>
    </message>
    <message>
        <source>The focus is elsewhere.</source>
        <translation>Der Fokus ist woanders.</translation>
    </message>
    <message>
        <source>It stands in another window.</source>
        <translation>Es steht in einem anderen Fenster.</translation>
    </message>
    <message>
        <source>It stands nowhere.</source>
        <translation>Es steht nirgends.</translation>
    </message>
    <message>
        <source>Its menu is disabled.</source>
        <translation>Sein Menü ist nicht verfügbar.</translation>
    </message>
    <message>
        <source>It is hidden.</source>
        <translation>Es ist verborgen.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::MDialogBase</name>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::MenuBarWidget</name>
    <message>
        <source>More of the menu bar</source>
        <translation>Mehr von der Menüleiste</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::MenuBuilder</name>
    <message>
        <source>Menu bar</source>
        <translation>Menüleiste</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::NotificationBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Close notification</source>
        <translation>Meldung schließen</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Warning: %1</source>
        <translation>Warnung: %1</translation>
    </message>
    <message>
        <source>Error: %1</source>
        <translation>Fehler: %1</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::PlacementSearch</name>
    <message>
        <source>%1 × %2 at (%3, %4)</source>
        <translation>%1 × %2 bei (%3, %4)</translation>
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
        <source>anywhere</source>
        <translation>irgendwo</translation>
    </message>
    <message>
        <source>arrow at the top</source>
        <translation>Pfeil oben</translation>
    </message>
    <message>
        <source>arrow at the bottom</source>
        <translation>Pfeil unten</translation>
    </message>
    <message>
        <source>arrow at the left</source>
        <translation>Pfeil links</translation>
    </message>
    <message>
        <source>arrow at the right</source>
        <translation>Pfeil rechts</translation>
    </message>
    <message>
        <source>arrow at the top left</source>
        <translation>Pfeil oben links</translation>
    </message>
    <message>
        <source>arrow at the top right</source>
        <translation>Pfeil oben rechts</translation>
    </message>
    <message>
        <source>arrow at the bottom right</source>
        <translation>Pfeil unten rechts</translation>
    </message>
    <message>
        <source>arrow at the bottom left</source>
        <translation>Pfeil unten links</translation>
    </message>
    <message>
        <source>taken</source>
        <translation>genommen</translation>
    </message>
    <message>
        <source>taken after the arrow was slid</source>
        <translation>genommen, nachdem der Pfeil verschoben war</translation>
    </message>
    <message>
        <source>taken as the last resort</source>
        <translation>genommen, weil nichts anderes blieb</translation>
    </message>
    <message>
        <source>the window has no such arrow</source>
        <translation>das Fenster hat keinen solchen Pfeil</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>%1 px too far left</source>
        <translation>%1 px zu weit links</translation>
    </message>
    <message>
        <source>%1 px too far right</source>
        <translation>%1 px zu weit rechts</translation>
    </message>
    <message>
        <source>%1 px too high</source>
        <translation>%1 px zu hoch</translation>
    </message>
    <message>
        <source>%1 px too low</source>
        <translation>%1 px zu tief</translation>
    </message>
    <message>
        <source>covers the reference</source>
        <translation>verdeckt den Bezug</translation>
    </message>
    <message>
        <source>slid by %1 px</source>
        <translation>um %1 px verschoben</translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>Reference: %1</source>
        <translation>Bezug: %1</translation>
    </message>
    <message>
        <source>Free area: %1</source>
        <translation>Freie Fläche: %1</translation>
    </message>
    <message>
        <source>Free area: no limits</source>
        <translation>Freie Fläche: unbegrenzt</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::ProgressContent</name>
    <message>
        <source>Cancelling…</source>
        <translation>Wird abgebrochen…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancelling: %1</source>
        <translation>Wird abgebrochen: %1</translation>
    </message>
    <message>
        <source>Cancel: %1</source>
        <translation>Abbrechen: %1</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::QtUiDebugger</name>
    <message>
        <source>Class: %1</source>
        <translation>Klasse: %1</translation>
    </message>
    <message>
        <source>Name: %1</source>
        <translation>Name: %1</translation>
    </message>
    <message>
        <source>Parent Class: %1</source>
        <translation>Elternklasse: %1</translation>
    </message>
    <message>
        <source>Parent Name: %1</source>
        <translation>Name des Elternobjekts: %1</translation>
    </message>
    <message>
        <source>Widget Info</source>
        <translation>Über das Widget</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::RunModel</name>
    <message>
        <source>Kept the main thread busy</source>
        <translation>Hat den Hauptthread aufgehalten</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Waited (ms)</source>
        <translation>Gewartet (ms)</translation>
    </message>
    <message>
        <source>Took (ms)</source>
        <translation>Gedauert (ms)</translation>
    </message>
    <message>
        <source>Thread</source>
        <translation>Thread</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::RunRecord</name>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Nothing done</source>
        <translation>Nichts getan</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>Abandoned</source>
        <translation>Aufgegeben</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::RunTimeline</name>
    <message>
        <source>Runs over time</source>
        <translation>Läufe über die Zeit</translation>
    </message>
    <message numerus="yes">
        <source>%n run(s)</source>
        <translation>
            <numerusform>ein Lauf</numerusform>
            <numerusform>%n Läufe</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: waited %2 ms, took %3 ms, %4</source>
        <translation>%1: wartete %2 ms, dauerte %3 ms, %4</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::Session</name>
    <message>
        <source>Something is missing at the end.</source>
        <translation>Am Ende fehlt etwas.</translation>
    </message>
    <message>
        <source>“%1” has no closing quotation mark.</source>
        <translation>Bei „%1“ fehlt das schließende Anführungszeichen.</translation>
    </message>
    <message>
        <source>“%1” is not a position such as (1, 0.5, 2).</source>
        <translation>„%1“ ist keine Stelle wie (1, 0.5, 2).</translation>
    </message>
    <message>
        <source>The values do not stand in braces, as in {&quot;name&quot;: 1}.</source>
        <translation>Die Werte stehen nicht in Klammern wie in {&quot;name&quot;: 1}.</translation>
    </message>
    <message>
        <source>“%1” is not a value in JSON.</source>
        <translation>„%1“ ist kein Wert in JSON.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>This is no session: it does not begin with “session %1”.</source>
        <translation>Das ist keine Sitzung: Sie beginnt nicht mit „session %1“.</translation>
    </message>
    <message>
        <source>Sessions of the format “%1” are not known.</source>
        <translation>Sitzungen im Format „%1“ sind nicht bekannt.</translation>
    </message>
    <message>
        <source>A step begins with “command” or “operation”, not with “%1”.</source>
        <translation>Ein Schritt beginnt mit „command“ oder „operation“, nicht mit „%1“.</translation>
    </message>
    <message>
        <source>“%1” is neither “on” nor “off”.</source>
        <translation>„%1“ ist weder „on“ noch „off“.</translation>
    </message>
    <message>
        <source>“%1” is no button of the mouse.</source>
        <translation>„%1“ ist keine Taste der Maus.</translation>
    </message>
    <message>
        <source>“%1” are no keys such as shift+control.</source>
        <translation>„%1“ sind keine Tasten wie shift+control.</translation>
    </message>
    <message>
        <source>There is no step before that this belongs to.</source>
        <translation>Davor steht kein Schritt, zu dem das gehört.</translation>
    </message>
    <message>
        <source>What is compared is written as “name = value”.</source>
        <translation>Was verglichen wird, steht als „Name = Wert“ da.</translation>
    </message>
    <message>
        <source>“%1” says nothing of a step.</source>
        <translation>„%1“ sagt nichts über einen Schritt.</translation>
    </message>
    <message>
        <source>It is too large for a session.</source>
        <translation>Sie ist zu groß für eine Sitzung.</translation>
    </message>
    <message>
        <source>“%1” is too much.</source>
        <translation>„%1“ ist zu viel.</translation>
    </message>
    <message>
        <source>“%1” is no number of a manager, such as 2.</source>
        <translation>„%1“ ist keine Nummer einer Verwaltung, wie 2.</translation>
    </message>
    <message>
        <source>There is no step before that runs “%1”.</source>
        <translation>Davor gibt es keinen Schritt, der „%1“ ausführt.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::SessionRecorder</name>
    <message>
        <source>“%1” works on something that it does not give: it cannot be replayed.</source>
        <translation>„%1“ arbeitet mit etwas, was es nicht angibt: Es kann nicht wiederholt werden.</translation>
    </message>
    <message>
        <source>“%1” began while something else ran; replayed it begins afterwards.</source>
        <translation>„%1“ begann, während etwas anderes lief; wiederholt beginnt es danach.</translation>
    </message>
    <message>
        <source>“%1” works on something that has no form as text (%2): it cannot be replayed.</source>
        <translation>„%1“ arbeitet mit etwas, das sich nicht als Text schreiben lässt (%2): Es lässt sich nicht wiederholen.</translation>
    </message>
    <message>
        <source>A session is being recorded already.</source>
        <translation>Es wird schon eine Sitzung aufgezeichnet.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::SessionReplay</name>
    <message>
        <source>it asks the user (“%1”).</source>
        <translation>es fragt den Benutzer („%1“).</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>%1 does not end: %2</source>
        <translation>%1 endet nicht: %2</translation>
    </message>
    <message>
        <source>%1 did not run: %2</source>
        <translation>%1 lief nicht: %2</translation>
    </message>
    <message>
        <source>it declined.</source>
        <translation>es lehnte ab.</translation>
    </message>
    <message>
        <source>%1 ended otherwise: %2</source>
        <translation>%1 endete anders: %2</translation>
    </message>
    <message>
        <source>%1 ended otherwise: %2 (%3)</source>
        <translation>%1 endete anders: %2 (%3)</translation>
    </message>
    <message>
        <source>%1 is %2 and not %3.</source>
        <translation>%1 ist %2 und nicht %3.</translation>
    </message>
    <message>
        <source>there is no command %1.</source>
        <translation>es gibt keinen Befehl %1.</translation>
    </message>
    <message>
        <source>%1 is grey.</source>
        <translation>%1 ist grau.</translation>
    </message>
    <message>
        <source>%1 is grey: %2</source>
        <translation>%1 ist grau: %2</translation>
    </message>
    <message>
        <source>%1 is on already.</source>
        <translation>%1 ist schon an.</translation>
    </message>
    <message>
        <source>%1 is off already.</source>
        <translation>%1 ist schon aus.</translation>
    </message>
    <message>
        <source>%1 does not understand its inputs.</source>
        <translation>%1 versteht seine Eingaben nicht.</translation>
    </message>
    <message>
        <source>nobody can do “%1” of %2 here.</source>
        <translation>niemand kann hier „%1“ von %2.</translation>
    </message>
    <message>
        <source>step %1: %2</source>
        <translation>Schritt %1: %2</translation>
    </message>
    <message>
        <source>before step 1: %1</source>
        <translation>vor Schritt 1: %1</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::ShortcutEditor</name>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>The shortcuts were read.</source>
        <translation>Die Tastenkürzel sind gelesen.</translation>
    </message>
    <message>
        <source>The shortcuts were written.</source>
        <translation>Die Tastenkürzel sind geschrieben.</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>The page was saved.</source>
        <translation>Die Seite ist gespeichert.</translation>
    </message>
    <message>
        <source>Find a command</source>
        <translation>Einen Befehl finden</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>&amp;Use Keys</source>
        <translation>Tasten &amp;benutzen</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Import…</source>
        <translation>&amp;Importieren…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Exportieren…</translation>
    </message>
    <message>
        <source>Save &amp;Page…</source>
        <translation>&amp;Seite speichern…</translation>
    </message>
    <message>
        <source>Reset &amp;All</source>
        <translation>&amp;Alle zurücksetzen</translation>
    </message>
    <message>
        <source>Press the keys for &quot;%1&quot;:</source>
        <translation>Drücken Sie die Tasten für „%1“:</translation>
    </message>
    <message>
        <source>No command is called like that.</source>
        <translation>So heißt kein Befehl.</translation>
    </message>
    <message>
        <source>Take &amp;Over</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>These keys belong to %1.</source>
        <translation>Diese Tasten gehören %1.</translation>
    </message>
    <message>
        <source>These keys are taken: %1. Choose others.</source>
        <translation>Diese Tasten sind vergeben: %1. Wählen Sie andere.</translation>
    </message>
    <message>
        <source>Import Shortcuts</source>
        <translation>Tastenkürzel importieren</translation>
    </message>
    <message>
        <source>Shortcuts (*.json)</source>
        <translation>Tastenkürzel (*.json)</translation>
    </message>
    <message>
        <source>Export Shortcuts</source>
        <translation>Tastenkürzel exportieren</translation>
    </message>
    <message>
        <source>Save Page</source>
        <translation>Seite speichern</translation>
    </message>
    <message>
        <source>Pages (*.pdf)</source>
        <translation>Seiten (*.pdf)</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::ShortcutModel</name>
    <message>
        <source>Changed</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::ShortcutScheme</name>
    <message>
        <source>%1 means %2: none of them was run.</source>
        <translation>%1 bedeutet %2: Nichts davon wurde ausgeführt.</translation>
    </message>
    <message>
        <source>This is no file of shortcuts: %1</source>
        <translation>Dies ist keine Datei mit Tastenkürzeln: %1</translation>
    </message>
    <message>
        <source>This is no file of shortcuts: it has no list of them.</source>
        <translation>Dies ist keine Datei mit Tastenkürzeln: Sie hat keine Liste davon.</translation>
    </message>
    <message>
        <source>This is no file of shortcuts: what stands at “%1” are no keys.</source>
        <translation>Das ist keine Datei mit Tastenkürzeln: Bei „%1“ stehen keine Tasten.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::ShortcutSheet</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Everywhere</source>
        <translation>Überall</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::ShortcutUse</name>
    <message>
        <source>a shortcut of the window</source>
        <translation>ein Kürzel des Fensters</translation>
    </message>
    <message>
        <source>Close what is open</source>
        <translation>Schließen, was offen ist</translation>
    </message>
    <message>
        <source>Go to the next toolbar</source>
        <translation>Zur nächsten Werkzeugleiste gehen</translation>
    </message>
    <message>
        <source>Go to the toolbar before</source>
        <translation>Zur vorigen Werkzeugleiste gehen</translation>
    </message>
    <message>
        <source>Go to the menu bar</source>
        <translation>Zur Menüleiste gehen</translation>
    </message>
    <message>
        <source>Unfold the tooltip</source>
        <translation>Den Tooltip aufklappen</translation>
    </message>
    <message>
        <source>Open the context menu</source>
        <translation>Das Kontextmenü öffnen</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::StateHistory</name>
    <message>
        <source>enabled</source>
        <translation>benutzbar</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>grau</translation>
    </message>
    <message>
        <source>checked</source>
        <translation>an</translation>
    </message>
    <message>
        <source>unchecked</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Became</source>
        <translation>Wurde</translation>
    </message>
    <message>
        <source>Because</source>
        <translation>Weil</translation>
    </message>
    <message>
        <source>It runs.</source>
        <translation>Er läuft.</translation>
    </message>
    <message>
        <source>No more: %1</source>
        <translation>Nicht mehr: %1</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::ToolBarOverflow</name>
    <message>
        <source>More buttons</source>
        <translation>Weitere Knöpfe</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::ToolButton</name>
    <message>
        <source>This is a paid feature. 
Please purchase or activate your license first.</source>
        <translation>Dies ist eine kostenpflichtige Funktion. 
Bitte kaufen oder aktivieren Sie zuerst Ihre Lizenz.</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::TooltipEx</name>
    <message>
        <source>F1 shows more</source>
        <translation>F1 zeigt mehr</translation>
    </message>
    <message>
        <source>F1 opens the help</source>
        <translation>F1 öffnet die Hilfe</translation>
    </message>
</context>
<context>
    <name>Vela::UiBase::WayOut</name>
    <message>
        <source>Show the panel of &quot;%1&quot;</source>
        <translation>Das Fenster von „%1“ zeigen</translation>
    </message>
    <message>
        <source>Cancel &quot;%1&quot;</source>
        <translation>„%1“ abbrechen</translation>
    </message>
    <message>
        <source>Run &quot;%1&quot; as soon as it is available</source>
        <translation>„%1“ ausführen, sobald es verfügbar ist</translation>
    </message>
</context>
<context>
    <name>Vela::UiToolkit::ImageViewerToolBar</name>
    <message>
        <source>Image Viewer Tool Bar</source>
        <translation>Werkzeugleiste des Bildbetrachters</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Zoom in&lt;br /&gt;Shortcut: +&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Vergrößern&lt;br /&gt;Taste: +&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Zoom Out&lt;br /&gt;Shortcut: -&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Verkleinern&lt;br /&gt;Taste: -&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Show image in its original size</source>
        <translation>Bild in Originalgröße zeigen</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Show image in its original size&lt;br /&gt;Shortcut: O&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Bild in Originalgröße zeigen&lt;br /&gt;Taste: O&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Fit in the image</source>
        <translation>Bild einpassen</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Fit in the image&lt;br/&gt;Shortcut: F&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Bild einpassen&lt;br/&gt;Taste: F&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Previous image</source>
        <translation>Voriges Bild</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Previous image&lt;br/&gt;Shortcut: &amp;lt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Voriges Bild&lt;br/&gt;Taste: &amp;lt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next image</source>
        <translation>Nächstes Bild</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Next image&lt;br/&gt;Shortcut: &amp;gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Nächstes Bild&lt;br/&gt;Taste: &amp;gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>Vela::UiToolkit::PrintMaterialInfoPanel</name>
    <message>
        <source>Volume info</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Working</source>
        <translation>In Arbeit</translation>
    </message>
    <message>
        <source>Model:</source>
        <translation>Modell:</translation>
    </message>
    <message>
        <source>Supports:</source>
        <translation>Stützen:</translation>
    </message>
    <message>
        <source>Combined:</source>
        <translation>Zusammen:</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>name of a unit and its symbol</comment>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>Vela::UiToolkit::SampleInnerTooltip</name>
    <message>
        <source>Sample Inner Tooltip</source>
        <translation>Beispiel eines inneren Tooltips</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;This is the advanced part of the tooltip! &lt;br /&gt;&lt;br /&gt;&lt;b&gt;Here is a sample image:&lt;/b&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Dies ist der ausführliche Teil des Tooltips! &lt;br /&gt;&lt;br /&gt;&lt;b&gt;Hier ist ein Beispielbild:&lt;/b&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Sample image</source>
        <translation>Beispielbild</translation>
    </message>
</context>
</TS>
