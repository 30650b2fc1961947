<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Engine</name>
    <message>
        <location filename="../mediaengine.cpp" line="15"/>
        <source>The file does not exist</source>
        <translation>Die Datei gibt es nicht</translation>
    </message>
    <message>
        <location filename="../mediaengine.cpp" line="16"/>
        <source>The file cannot be read</source>
        <translation>Die Datei kann nicht gelesen werden</translation>
    </message>
    <message>
        <location filename="../mediaengine.cpp" line="17"/>
        <source>The path is a folder, a pipe or a device</source>
        <translation>Der Pfad ist ein Ordner, eine Pipe oder ein Gerät</translation>
    </message>
    <message>
        <location filename="../mediaengine.cpp" line="18"/>
        <source>The file is empty</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <location filename="../mediaengine.cpp" line="19"/>
        <source>The file holds no film and no sound that can be played</source>
        <translation>Die Datei enthält keinen Film und keinen Ton, der sich abspielen lässt</translation>
    </message>
    <message>
        <location filename="../mediaengine.cpp" line="20"/>
        <source>The file could not be examined in time</source>
        <translation>Die Datei ließ sich nicht rechtzeitig ansehen</translation>
    </message>
    <message>
        <location filename="../mediaengine.cpp" line="21"/>
        <source>The file holds no film, only sound</source>
        <translation>Die Datei enthält keinen Film, nur Ton</translation>
    </message>
</context>
<context>
    <name>Export</name>
    <message>
        <location filename="../exportconsole.cpp" line="32"/>
        <source>%1 of %2, %3: %4 %</source>
        <translation>%1 von %2, %3: %4 %</translation>
    </message>
    <message>
        <location filename="../exportconsole.cpp" line="35"/>
        <source>, %1 s left</source>
        <translation>, noch %1 s</translation>
    </message>
    <message>
        <location filename="../exportjob.cpp" line="164"/>
        <source>the folder cannot be made</source>
        <translation>der Ordner lässt sich nicht anlegen</translation>
    </message>
    <message>
        <location filename="../exportjob.cpp" line="188"/>
        <source>the export was stopped</source>
        <translation>der Export wurde abgebrochen</translation>
    </message>
    <message>
        <location filename="../streamcopy.cpp" line="155"/>
        <source>Matroska cannot hold its sound</source>
        <translation>Matroska kann seinen Ton nicht aufnehmen</translation>
    </message>
    <message>
        <location filename="../streamcopy.cpp" line="150"/>
        <source>without its sound in %1, of which the file tells too little</source>
        <translation>ohne seinen Ton in %1, über den die Datei zu wenig sagt</translation>
    </message>
    <message>
        <location filename="../streamcopy.cpp" line="165"/>
        <source>without its subtitles in %1, which Matroska cannot hold</source>
        <translation>ohne seine Untertitel in %1, die Matroska nicht aufnehmen kann</translation>
    </message>
    <message>
        <location filename="../filmexport.cpp" line="152"/>
        <source>FFmpeg has no encoder for it here</source>
        <translation>FFmpeg hat hier keinen passenden Encoder</translation>
    </message>
    <message>
        <location filename="../filmexport.cpp" line="187"/>
        <source>FFmpeg cannot convert its pictures</source>
        <translation>FFmpeg kann seine Bilder nicht umwandeln</translation>
    </message>
    <message>
        <location filename="../filmexport.cpp" line="225"/>
        <source>none of its pictures can be decoded</source>
        <translation>keines seiner Bilder lässt sich dekodieren</translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message>
        <location filename="../exportdialog.cpp" line="26"/>
        <source>Estimating the time left…</source>
        <translation>Restzeit wird geschätzt …</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="28"/>
        <source>Less than a minute left</source>
        <translation>Noch weniger als eine Minute</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="30"/>
        <source>About %1 min left</source>
        <translation>Noch etwa %1 min</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="31"/>
        <source>About %1 h %2 min left</source>
        <translation>Noch etwa %1 h %2 min</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="39"/>
        <source>Films written: %1</source>
        <translation>Geschriebene Filme: %1</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="40"/>
        <source>Films written: %1, failed: %2</source>
        <translation>Geschriebene Filme: %1, fehlgeschlagen: %2</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="65"/>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="88"/>
        <source>Looking into the films…</source>
        <translation>Die Filme werden angesehen …</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="94"/>
        <source>In %1</source>
        <translation>In %1</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="108"/>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="142"/>
        <source>Film %1 of %2: %3</source>
        <translation>Film %1 von %2: %3</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="172"/>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="180"/>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <location filename="../exportdialog.cpp" line="195"/>
        <source>Cancelling…</source>
        <translation>Wird abgebrochen …</translation>
    </message>
</context>
<context>
    <name>FilmDelegate</name>
    <message>
        <location filename="../filmdelegate.cpp" line="90"/>
        <source>Looking into it…</source>
        <translation>Wird angesehen …</translation>
    </message>
    <message>
        <location filename="../filmdelegate.cpp" line="92"/>
        <source>Sound only</source>
        <translation>Nur Ton</translation>
    </message>
    <message>
        <location filename="../filmdelegate.cpp" line="141"/>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
</context>
<context>
    <name>FilmList</name>
    <message>
        <location filename="../filmlist.cpp" line="152"/>
        <source>%1, depth %2</source>
        <translation>%1, Tiefe %2</translation>
    </message>
</context>
<context>
    <name>FilmPane</name>
    <message>
        <location filename="../filmpane.cpp" line="47"/>
        <location filename="../filmpane.cpp" line="53"/>
        <source>Open films…</source>
        <translation>Filme öffnen …</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="48"/>
        <source>Open folder…</source>
        <translation>Ordner öffnen …</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="49"/>
        <source>Paste files or a list of paths</source>
        <translation>Dateien oder eine Liste von Pfaden einfügen</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="54"/>
        <source>Films and sound files; the arrow offers folders and lists</source>
        <translation>Filme und Tondateien; der Pfeil bietet Ordner und Listen</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="60"/>
        <source>Export…</source>
        <translation>Exportieren …</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="61"/>
        <source>Write the films whose 3D is on into a folder, as they are shown</source>
        <translation>Die Filme mit eingeschaltetem 3D so, wie sie gezeigt werden, in einen Ordner schreiben</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="77"/>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="78"/>
        <source>Choose the file that OK writes the settings to</source>
        <translation>Die Datei wählen, in die OK die Einstellungen schreibt</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="89"/>
        <source>No settings file yet</source>
        <translation>Noch keine Einstellungsdatei</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="90"/>
        <source>OK writes %1</source>
        <translation>OK schreibt %1</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="107"/>
        <source>Open films</source>
        <translation>Filme öffnen</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="117"/>
        <source>Open a folder of films</source>
        <translation>Einen Ordner mit Filmen öffnen</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="127"/>
        <source>What was copied names no file.</source>
        <translation>Das Kopierte nennt keine Datei.</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="134"/>
        <source>Write the settings to</source>
        <translation>Einstellungen schreiben nach</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="136"/>
        <source>Settings (*.json)</source>
        <translation>Einstellungen (*.json)</translation>
    </message>
    <message>
        <location filename="../filmpane.cpp" line="146"/>
        <source>Export into a folder</source>
        <translation>In einen Ordner exportieren</translation>
    </message>
</context>
<context>
    <name>FilmView</name>
    <message>
        <location filename="../filmview.cpp" line="21"/>
        <source>Films</source>
        <translation>Filme</translation>
    </message>
    <message>
        <location filename="../filmview.cpp" line="49"/>
        <source>Open films…
or drop them here</source>
        <translation>Filme öffnen …
oder hier ablegen</translation>
    </message>
</context>
<context>
    <name>KeepSettings</name>
    <message>
        <location filename="../keepsettings.cpp" line="28"/>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <location filename="../keepsettings.cpp" line="30"/>
        <source>Save the 3D settings?</source>
        <translation>Die 3D-Einstellungen speichern?</translation>
    </message>
    <message>
        <location filename="../keepsettings.cpp" line="31"/>
        <source>The settings could not be saved.</source>
        <translation>Die Einstellungen konnten nicht gespeichert werden.</translation>
    </message>
    <message>
        <location filename="../keepsettings.cpp" line="33"/>
        <source>With --settings FILE they are read and written without asking.</source>
        <translation>Mit --settings DATEI werden sie ohne Nachfrage gelesen und geschrieben.</translation>
    </message>
    <message>
        <location filename="../keepsettings.cpp" line="35"/>
        <source>Save as…</source>
        <translation>Speichern unter …</translation>
    </message>
    <message>
        <location filename="../keepsettings.cpp" line="36"/>
        <source>Do not save</source>
        <translation>Nicht speichern</translation>
    </message>
    <message>
        <location filename="../keepsettings.cpp" line="47"/>
        <source>Write the settings to</source>
        <translation>Einstellungen schreiben nach</translation>
    </message>
    <message>
        <location filename="../keepsettings.cpp" line="48"/>
        <source>Settings (*.json)</source>
        <translation>Einstellungen (*.json)</translation>
    </message>
    <message>
        <location filename="../keepsettings.cpp" line="37"/>
        <source>Go on</source>
        <translation>Weitermachen</translation>
    </message>
</context>
<context>
    <name>Modes</name>
    <message>
        <location filename="../modenames.cpp" line="15"/>
        <source>3D off</source>
        <translation>3D aus</translation>
    </message>
    <message>
        <location filename="../modenames.cpp" line="16"/>
        <source>Red/Cyan</source>
        <translation>Rot/Cyan</translation>
    </message>
    <message>
        <location filename="../modenames.cpp" line="17"/>
        <source>Red/Green</source>
        <translation>Rot/Grün</translation>
    </message>
    <message>
        <location filename="../modenames.cpp" line="18"/>
        <source>Red/Blue</source>
        <translation>Rot/Blau</translation>
    </message>
    <message>
        <location filename="../modenames.cpp" line="19"/>
        <source>Blue/Yellow</source>
        <translation>Blau/Gelb</translation>
    </message>
    <message>
        <location filename="../modenames.cpp" line="20"/>
        <source>Interleaved</source>
        <translation>Zeilenweise</translation>
    </message>
    <message>
        <location filename="../modenames.cpp" line="21"/>
        <source>Side by Side</source>
        <translation>Nebeneinander</translation>
    </message>
</context>
<context>
    <name>Options</name>
    <message>
        <location filename="../options.cpp" line="38"/>
        <source>Plays films and sets up how each is shown in 3D.

OK writes the settings, Cancel and Escape write nothing.
Exit status: 0 OK, 1 Cancel, 2 wrong usage, 3 a file or the engine failed.</source>
        <translation>Spielt Filme und stellt ein, wie jeder in 3D gezeigt wird.

OK schreibt die Einstellungen, Abbrechen und Escape schreiben nichts.
Rückgabe: 0 OK, 1 abgebrochen, 2 falscher Aufruf, 3 eine Datei oder der Player hat versagt.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="42"/>
        <source>Films and sound files; a folder means those in it.</source>
        <translation>Filme und Tondateien; ein Ordner steht für die in ihm.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="43"/>
        <source>[FILE|FOLDER...]</source>
        <translation>[DATEI|ORDNER...]</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="48"/>
        <source>Write the player&apos;s picture of the first film and quit; needs no display.</source>
        <translation>Das Bild des ersten Films, wie der Player es zeigt, schreiben und enden; braucht keinen Bildschirm.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="49"/>
        <location filename="../options.cpp" line="72"/>
        <location filename="../options.cpp" line="87"/>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="50"/>
        <source>Where in the film --screenshot looks, in milliseconds.</source>
        <translation>Wo im Film --screenshot hinsieht, in Millisekunden.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="50"/>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="53"/>
        <source>After OK, write each film whose 3D is on into this folder, as the player shows it in full size, with its sound, subtitles and chapters: NAME.MODE.mkv.</source>
        <translation>Nach OK jeden Film mit eingeschaltetem 3D in diesen Ordner schreiben, wie der Player ihn zeigt, in voller Größe und mit seinem Ton, seinen Untertiteln und Kapiteln: NAME.MODUS.mkv.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="55"/>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="56"/>
        <source>Export to the pixel (FFV1) instead of in H.264.</source>
        <translation>Pixelgenau (FFV1) statt in H.264 exportieren.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="58"/>
        <source>Export at once what --settings says; takes no FILE and needs no display.</source>
        <translation>Sofort exportieren, was --settings vorgibt; nimmt keine DATEI und braucht keinen Bildschirm.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="59"/>
        <source>Show this help.</source>
        <translation>Diese Hilfe zeigen.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="60"/>
        <source>Show the version.</source>
        <translation>Die Version zeigen.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="70"/>
        <source>Settings of films as JSON: read at the start, written on OK. Without FILE the films that it names are opened.</source>
        <translation>Einstellungen von Filmen als JSON: zu Beginn gelesen, mit OK geschrieben. Ohne DATEI werden die Filme geöffnet, die darin stehen.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="73"/>
        <source>Print the settings on OK, as JSON.</source>
        <translation>Die Einstellungen mit OK ausgeben, als JSON.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="74"/>
        <source>3D mode of films without settings: %1.</source>
        <translation>3D-Modus von Filmen ohne Einstellungen: %1.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="74"/>
        <location filename="../options.cpp" line="80"/>
        <location filename="../options.cpp" line="89"/>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="77"/>
        <source>Depth of films without settings, from -0.3 to 0.3 of the picture&apos;s width; negative comes out of the screen.</source>
        <translation>Tiefe von Filmen ohne Einstellungen, von -0.3 bis 0.3 der Bildbreite; negativ tritt aus dem Bild heraus.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="79"/>
        <source>depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="80"/>
        <source>3D mode not to offer.</source>
        <translation>3D-Modus, der nicht angeboten wird.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="87"/>
        <source>Film to begin with; otherwise the first.</source>
        <translation>Film, mit dem begonnen wird; sonst der erste.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="89"/>
        <source>Sound output of the player, such as alsa or pulse; null is silent.</source>
        <translation>Tonausgabe des Players, etwa alsa oder pulse; null ist stumm.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="90"/>
        <source>Language of the texts: en, de; otherwise the system&apos;s.</source>
        <translation>Sprache der Texte: en, de; sonst die des Systems.</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="91"/>
        <source>code</source>
        <translation>Code</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="101"/>
        <source>--%1: there is no 3D mode &quot;%2&quot;. The modes are: %3</source>
        <translation>--%1: den 3D-Modus „%2“ gibt es nicht. Die Modi sind: %3</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="112"/>
        <source>--%1: &quot;%2&quot; is not a number from -0.3 to 0.3</source>
        <translation>--%1: „%2“ ist keine Zahl von -0.3 bis 0.3</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="122"/>
        <source>--%1: &quot;%2&quot; is not a number of milliseconds</source>
        <translation>--%1: „%2“ ist keine Zahl von Millisekunden</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="132"/>
        <source>--%1: the name of the file is empty</source>
        <translation>--%1: der Dateiname ist leer</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="135"/>
        <source>--%1: needs --settings and --export</source>
        <translation>--%1: braucht --settings und --export</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="137"/>
        <source>--%1: exports the films of the settings, and takes no others</source>
        <translation>--%1: exportiert die Filme der Einstellungen und nimmt keine anderen</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="140"/>
        <source>--%1: films cannot start in the mode that is not offered</source>
        <translation>--%1: Filme können nicht in dem Modus beginnen, der nicht angeboten wird</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="143"/>
        <source>--%1: name the film to take the picture of</source>
        <translation>--%1: es fehlt der Film, von dem das Bild gemacht werden soll</translation>
    </message>
    <message>
        <location filename="../options.cpp" line="145"/>
        <source>--%1: takes a picture and exports nothing</source>
        <translation>--%1: macht ein Bild und exportiert nichts</translation>
    </message>
</context>
<context>
    <name>Player</name>
    <message>
        <location filename="../playertexts.cpp" line="18"/>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="19"/>
        <source>Full volume</source>
        <translation>Volle Lautstärke</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="20"/>
        <source>Previous film</source>
        <translation>Voriger Film</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="21"/>
        <source>Next film</source>
        <translation>Nächster Film</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="22"/>
        <source>5 seconds back</source>
        <translation>5 Sekunden zurück</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="23"/>
        <source>5 seconds on</source>
        <translation>5 Sekunden vor</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="24"/>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="25"/>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="26"/>
        <source>3D Depth:</source>
        <translation>3D-Tiefe:</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="27"/>
        <source>Apply to all</source>
        <translation>Für alle</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="28"/>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <location filename="../playertexts.cpp" line="29"/>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PreviewDialog</name>
    <message>
        <location filename="../previewdialog.cpp" line="113"/>
        <source>No films in %1</source>
        <translation>Keine Filme in %1</translation>
    </message>
    <message>
        <location filename="../previewdialog.cpp" line="231"/>
        <source>Preview in 3D</source>
        <translation>Vorschau in 3D</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <location filename="../main.cpp" line="41"/>
        <source>the output could not be written</source>
        <translation>die Ausgabe konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <location filename="../main.cpp" line="78"/>
        <source>the film could not be shown at this place</source>
        <translation>der Film konnte an dieser Stelle nicht gezeigt werden</translation>
    </message>
    <message>
        <location filename="../main.cpp" line="92"/>
        <source>there is no film to take the picture of</source>
        <translation>es gibt keinen Film, von dem das Bild gemacht werden könnte</translation>
    </message>
    <message>
        <location filename="../main.cpp" line="150"/>
        <source>the engine could not be opened</source>
        <translation>der Player konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <location filename="../main.cpp" line="200"/>
        <source>--language: there are no texts in &quot;%1&quot;, but in: %2</source>
        <translation>--language: es gibt keine Texte in „%1“, nur in: %2</translation>
    </message>
    <message>
        <location filename="../main.cpp" line="205"/>
        <source> (--help tells more)</source>
        <translation> (--help sagt mehr)</translation>
    </message>
    <message>
        <location filename="../main.cpp" line="209"/>
        <source>there is no display to open a window on; --screenshot needs none</source>
        <translation>es gibt keinen Bildschirm für ein Fenster; --screenshot braucht keinen</translation>
    </message>
    <message>
        <location filename="../main.cpp" line="83"/>
        <source>there is no image format &quot;%1&quot;</source>
        <translation>es gibt kein Bildformat „%1“</translation>
    </message>
</context>
<context>
    <name>ReplaceFile</name>
    <message>
        <location filename="../replacefile.cpp" line="32"/>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <location filename="../settings.cpp" line="52"/>
        <source>&quot;path&quot; is missing</source>
        <translation>„path“ fehlt</translation>
    </message>
    <message>
        <location filename="../settings.cpp" line="54"/>
        <source>&quot;%1&quot; is not a 3D mode</source>
        <translation>„%1“ ist kein 3D-Modus</translation>
    </message>
    <message>
        <location filename="../settings.cpp" line="56"/>
        <source>&quot;depth&quot; is not a number from -0.3 to 0.3</source>
        <translation>„depth“ ist keine Zahl von -0.3 bis 0.3</translation>
    </message>
    <message>
        <location filename="../settings.cpp" line="67"/>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <location filename="../settings.cpp" line="73"/>
        <source>not a list of films</source>
        <translation>keine Liste von Filmen</translation>
    </message>
    <message>
        <location filename="../settings.cpp" line="81"/>
        <source>film %1: %2</source>
        <translation>Film %1: %2</translation>
    </message>
    <message>
        <location filename="../settings.cpp" line="103"/>
        <source>%1 cannot be read as settings: %2</source>
        <translation>%1 kann nicht als Einstellungen gelesen werden: %2</translation>
    </message>
</context>
</TS>
