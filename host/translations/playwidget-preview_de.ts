<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Engine</name>
    <message>
        <source>The file does not exist</source>
        <translation>Die Datei gibt es nicht</translation>
    </message>
    <message>
        <source>The file cannot be read</source>
        <translation>Die Datei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>The path is a folder, a pipe or a device</source>
        <translation>Der Pfad ist ein Ordner, eine Pipe oder ein Gerät</translation>
    </message>
    <message>
        <source>The file is empty</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <source>The file holds no film and no sound that can be played</source>
        <translation>Die Datei enthält keinen Film und keinen Ton, der sich abspielen lässt</translation>
    </message>
    <message>
        <source>The file could not be examined in time</source>
        <translation>Die Datei ließ sich nicht rechtzeitig ansehen</translation>
    </message>
</context>
<context>
    <name>FilmDelegate</name>
    <message>
        <source>Looking into it…</source>
        <translation>Wird angesehen …</translation>
    </message>
    <message>
        <source>Sound only</source>
        <translation>Nur Ton</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
</context>
<context>
    <name>FilmList</name>
    <message>
        <source>%1, depth %2</source>
        <translation>%1, Tiefe %2</translation>
    </message>
</context>
<context>
    <name>FilmPane</name>
    <message>
        <source>Open films…</source>
        <translation>Filme öffnen …</translation>
    </message>
    <message>
        <source>Open folder…</source>
        <translation>Ordner öffnen …</translation>
    </message>
    <message>
        <source>Paste files or a list of paths</source>
        <translation>Dateien oder eine Liste von Pfaden einfügen</translation>
    </message>
    <message>
        <source>Films and sound files; the arrow offers folders and lists</source>
        <translation>Filme und Tondateien; der Pfeil bietet Ordner und Listen</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>Choose the file that OK writes the settings to</source>
        <translation>Die Datei wählen, in die OK die Einstellungen schreibt</translation>
    </message>
    <message>
        <source>No settings file yet</source>
        <translation>Noch keine Einstellungsdatei</translation>
    </message>
    <message>
        <source>OK writes %1</source>
        <translation>OK schreibt %1</translation>
    </message>
    <message>
        <source>Open films</source>
        <translation>Filme öffnen</translation>
    </message>
    <message>
        <source>Open a folder of films</source>
        <translation>Einen Ordner mit Filmen öffnen</translation>
    </message>
    <message>
        <source>What was copied names no file.</source>
        <translation>Das Kopierte nennt keine Datei.</translation>
    </message>
    <message>
        <source>Write the settings to</source>
        <translation>Einstellungen schreiben nach</translation>
    </message>
    <message>
        <source>Settings (*.json)</source>
        <translation>Einstellungen (*.json)</translation>
    </message>
</context>
<context>
    <name>FilmView</name>
    <message>
        <source>Films</source>
        <translation>Filme</translation>
    </message>
    <message>
        <source>Open films…
or drop them here</source>
        <translation>Filme öffnen …
oder hier ablegen</translation>
    </message>
</context>
<context>
    <name>KeepSettings</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Save the 3D settings?</source>
        <translation>Die 3D-Einstellungen speichern?</translation>
    </message>
    <message>
        <source>The settings could not be saved.</source>
        <translation>Die Einstellungen konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>With --settings FILE they are read and written without asking.</source>
        <translation>Mit --settings DATEI werden sie ohne Nachfrage gelesen und geschrieben.</translation>
    </message>
    <message>
        <source>Save as…</source>
        <translation>Speichern unter …</translation>
    </message>
    <message>
        <source>Do not save</source>
        <translation>Nicht speichern</translation>
    </message>
    <message>
        <source>Write the settings to</source>
        <translation>Einstellungen schreiben nach</translation>
    </message>
    <message>
        <source>Settings (*.json)</source>
        <translation>Einstellungen (*.json)</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Weitermachen</translation>
    </message>
</context>
<context>
    <name>Modes</name>
    <message>
        <source>3D off</source>
        <translation>3D aus</translation>
    </message>
    <message>
        <source>Red/Cyan</source>
        <translation>Rot/Cyan</translation>
    </message>
    <message>
        <source>Red/Green</source>
        <translation>Rot/Grün</translation>
    </message>
    <message>
        <source>Red/Blue</source>
        <translation>Rot/Blau</translation>
    </message>
    <message>
        <source>Blue/Yellow</source>
        <translation>Blau/Gelb</translation>
    </message>
    <message>
        <source>Interleaved</source>
        <translation>Zeilenweise</translation>
    </message>
    <message>
        <source>Side by Side</source>
        <translation>Nebeneinander</translation>
    </message>
</context>
<context>
    <name>Options</name>
    <message>
        <source>Plays films and sets up how each is shown in 3D.

OK writes the settings, Cancel and Escape write nothing.
Exit status: 0 OK, 1 Cancel, 2 wrong usage, 3 a file or the engine failed.</source>
        <translation>Spielt Filme und stellt ein, wie jeder in 3D gezeigt wird.

OK schreibt die Einstellungen, Abbrechen und Escape schreiben nichts.
Rückgabe: 0 OK, 1 abgebrochen, 2 falscher Aufruf, 3 eine Datei oder der Player hat versagt.</translation>
    </message>
    <message>
        <source>Films and sound files; a folder means those in it.</source>
        <translation>Filme und Tondateien; ein Ordner steht für die in ihm.</translation>
    </message>
    <message>
        <source>[FILE|FOLDER...]</source>
        <translation>[DATEI|ORDNER...]</translation>
    </message>
    <message>
        <source>Write the player&apos;s picture of the first film and quit; needs no display.</source>
        <translation>Das Bild des ersten Films, wie der Player es zeigt, schreiben und enden; braucht keinen Bildschirm.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Where in the film --screenshot looks, in milliseconds.</source>
        <translation>Wo im Film --screenshot hinsieht, in Millisekunden.</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Diese Hilfe zeigen.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Die Version zeigen.</translation>
    </message>
    <message>
        <source>Settings of films as JSON: read at the start, written on OK. Without FILE the films that it names are opened.</source>
        <translation>Einstellungen von Filmen als JSON: zu Beginn gelesen, mit OK geschrieben. Ohne DATEI werden die Filme geöffnet, die darin stehen.</translation>
    </message>
    <message>
        <source>Print the settings on OK, as JSON.</source>
        <translation>Die Einstellungen mit OK ausgeben, als JSON.</translation>
    </message>
    <message>
        <source>3D mode of films without settings: %1.</source>
        <translation>3D-Modus von Filmen ohne Einstellungen: %1.</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Depth of films without settings, from -0.3 to 0.3 of the picture&apos;s width; negative comes out of the screen.</source>
        <translation>Tiefe von Filmen ohne Einstellungen, von -0.3 bis 0.3 der Bildbreite; negativ tritt aus dem Bild heraus.</translation>
    </message>
    <message>
        <source>depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>3D mode not to offer.</source>
        <translation>3D-Modus, der nicht angeboten wird.</translation>
    </message>
    <message>
        <source>Film to begin with; otherwise the first.</source>
        <translation>Film, mit dem begonnen wird; sonst der erste.</translation>
    </message>
    <message>
        <source>Sound output of the player, such as alsa or pulse; null is silent.</source>
        <translation>Tonausgabe des Players, etwa alsa oder pulse; null ist stumm.</translation>
    </message>
    <message>
        <source>Language of the texts: en, de; otherwise the system&apos;s.</source>
        <translation>Sprache der Texte: en, de; sonst die des Systems.</translation>
    </message>
    <message>
        <source>code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>--%1: there is no 3D mode &quot;%2&quot;. The modes are: %3</source>
        <translation>--%1: den 3D-Modus „%2“ gibt es nicht. Die Modi sind: %3</translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; is not a number from -0.3 to 0.3</source>
        <translation>--%1: „%2“ ist keine Zahl von -0.3 bis 0.3</translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; is not a number of milliseconds</source>
        <translation>--%1: „%2“ ist keine Zahl von Millisekunden</translation>
    </message>
    <message>
        <source>--%1: the name of the file is empty</source>
        <translation>--%1: der Dateiname ist leer</translation>
    </message>
    <message>
        <source>--%1: films cannot start in the mode that is not offered</source>
        <translation>--%1: Filme können nicht in dem Modus beginnen, der nicht angeboten wird</translation>
    </message>
    <message>
        <source>--%1: name the film to take the picture of</source>
        <translation>--%1: es fehlt der Film, von dem das Bild gemacht werden soll</translation>
    </message>
</context>
<context>
    <name>Player</name>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Full volume</source>
        <translation>Volle Lautstärke</translation>
    </message>
    <message>
        <source>Previous film</source>
        <translation>Voriger Film</translation>
    </message>
    <message>
        <source>Next film</source>
        <translation>Nächster Film</translation>
    </message>
    <message>
        <source>5 seconds back</source>
        <translation>5 Sekunden zurück</translation>
    </message>
    <message>
        <source>5 seconds on</source>
        <translation>5 Sekunden vor</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>3D Depth:</source>
        <translation>3D-Tiefe:</translation>
    </message>
    <message>
        <source>Apply to all</source>
        <translation>Für alle</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PreviewDialog</name>
    <message>
        <source>No films in %1</source>
        <translation>Keine Filme in %1</translation>
    </message>
    <message>
        <source>Preview in 3D</source>
        <translation>Vorschau in 3D</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>the output could not be written</source>
        <translation>die Ausgabe konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the film could not be shown at this place</source>
        <translation>der Film konnte an dieser Stelle nicht gezeigt werden</translation>
    </message>
    <message>
        <source>the engine could not be opened</source>
        <translation>der Player konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>--language: there are no texts in &quot;%1&quot;, but in: %2</source>
        <translation>--language: es gibt keine Texte in „%1“, nur in: %2</translation>
    </message>
    <message>
        <source> (--help tells more)</source>
        <translation> (--help sagt mehr)</translation>
    </message>
    <message>
        <source>there is no display to open a window on; --screenshot needs none</source>
        <translation>es gibt keinen Bildschirm für ein Fenster; --screenshot braucht keinen</translation>
    </message>
    <message>
        <source>there is no image format &quot;%1&quot;</source>
        <translation>es gibt kein Bildformat „%1“</translation>
    </message>
</context>
<context>
    <name>ReplaceFile</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>&quot;path&quot; is missing</source>
        <translation>„path“ fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a 3D mode</source>
        <translation>„%1“ ist kein 3D-Modus</translation>
    </message>
    <message>
        <source>&quot;depth&quot; is not a number from -0.3 to 0.3</source>
        <translation>„depth“ ist keine Zahl von -0.3 bis 0.3</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>not a list of films</source>
        <translation>keine Liste von Filmen</translation>
    </message>
    <message>
        <source>film %1: %2</source>
        <translation>Film %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be read as settings: %2</source>
        <translation>%1 kann nicht als Einstellungen gelesen werden: %2</translation>
    </message>
</context>
</TS>
