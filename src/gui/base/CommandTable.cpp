#include "base/CommandTable.h"

#include "base/CommandIds.h"

#include <algorithm>

namespace velto {

namespace {
QList<QKeySequence> Keys(std::initializer_list<QKeyCombination> keys) {
    QList<QKeySequence> out;
    for (QKeyCombination key : keys)
        out.append(QKeySequence(key));
    return out;
}

constexpr Qt::KeyboardModifiers kCtrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers kShift = Qt::ShiftModifier;
constexpr Qt::KeyboardModifiers kCtrlPad = Qt::ControlModifier | Qt::KeypadModifier;

std::vector<CommandInfo> BuildTable() {
    using namespace cmd;
    const bool check = true;
    return {
        {FileNew, "&Neu\tStrg+N", "Erstellt ein neues Projekt.\nNeu", Keys({kCtrl | Qt::Key_N}),
         "document-new"},
        {FileOpen, "Ö&ffnen...\tStrg+O", "Öffnet ein bestehendes Projekt.\nÖffnen", Keys({kCtrl | Qt::Key_O}),
         "document-open"},
        {FileClose, "S&chließen", "Schließt das aktive Projekt.\nSchließen", {}, "document-close"},
        {FileSave, "&Speichern\tStrg+S", "Speichert das aktive Projekt.\nSpeichern",
         Keys({kCtrl | Qt::Key_S}), "document-save"},
        {FileSaveAs,
         "Speichern &unter...",
         "Speichert das aktive Projekt unter einem neuen Namen.\nSpeichern unter",
         {},
         "document-save-as"},
        {FileRestoreBackup, "Sicherung &wiederherstellen...",
         "Zeigt die Sicherungen des aktiven Projekts, um eine zu öffnen oder wiederherzustellen.\n"
         "Sicherung wiederherstellen"},
        {FilePrint, "&Drucken...\tStrg+P", "Druckt das aktive Projekt.\nDrucken", Keys({kCtrl | Qt::Key_P}),
         "document-print"},
        {FilePrintDirect, "Direkt d&rucken", "Druckt das aktive Projekt ohne Rückfrage.\nDirekt drucken"},
        {FilePrintPreview,
         "Seiten&ansicht",
         "Zeigt die Druckseiten des aktiven Projekts.\nSeitenansicht",
         {},
         "document-print-preview"},
        {AppAbout, "&Info über Velto...", "Zeigt Programmname und Version.\nInfo", {}, "help-about"},
        {AppExit,
         "&Beenden",
         "Beendet Velto; fragt nach dem Speichern geänderter Projekte.\nBeenden",
         {},
         "application-exit"},

        {EditUndo, "&Rückgängig\tStrg+Z",
         "Nimmt die letzte Änderung am Baum zurück; ein zweites Mal stellt sie wieder her.\nRückgängig",
         Keys({kCtrl | Qt::Key_Z, Qt::AltModifier | Qt::Key_Backspace}), "edit-undo"},
        {EditCut, "&Ausschneiden\tStrg+X", "Schneidet den markierten Knoten aus.\nAusschneiden",
         Keys({kCtrl | Qt::Key_X, kShift | Qt::Key_Delete}), "edit-cut"},
        {EditCopy, "&Kopieren\tStrg+C", "Kopiert den markierten Knoten.\nKopieren",
         Keys({kCtrl | Qt::Key_C, kCtrl | Qt::Key_Insert}), "edit-copy"},
        {EditPaste, "E&infügen\tStrg+V", "Fügt die kopierten Knoten ein.\nEinfügen",
         Keys({kCtrl | Qt::Key_V, kShift | Qt::Key_Insert}), "edit-paste"},

        {NewNode, "&Neuer Knoten\tStrg+K",
         "Legt unter dem markierten Projektknoten einen neuen Knoten an.\nNeuer Knoten",
         Keys({kCtrl | Qt::Key_K}), "list-add"},
        {EditNode, "Knoten &bearbeiten\tStrg+Enter", "Bearbeitet den markierten Knoten.\nKnoten bearbeiten",
         Keys({kCtrl | Qt::Key_Return, kCtrlPad | Qt::Key_Enter}), "document-properties"},
        {DeleteNode, "Knoten &löschen\tStrg+Entf",
         "Löscht den markierten Knoten mit seinen Unterknoten.\nKnoten löschen",
         Keys({kCtrl | Qt::Key_Delete}), "list-remove"},
        {CollapseAll, "Alle Knoten &reduzieren\tStrg+R",
         "Klappt alle Projektknoten zu.\nAlle Knoten reduzieren", Keys({kCtrl | Qt::Key_R}),
         "velto-collapse-all"},
        {ExpandAll, "Alle Knoten &expandieren\tStrg+E",
         "Klappt alle Projektknoten auf.\nAlle Knoten expandieren", Keys({kCtrl | Qt::Key_E}),
         "velto-expand-all"},
        {FindText, "Text &suchen...\tStrg+F",
         "Sucht einen Text in Titeln, Notizen, Stunden und Kosten.\nText suchen", Keys({kCtrl | Qt::Key_F}),
         "edit-find"},
        {MyTasks, "&Meine Aufgaben suchen...", "Zeigt die Knoten eines Verantwortlichen.\nMeine Aufgaben"},
        {SortByDate,
         "Nach &Datum sortieren",
         "Sortiert die Knoten jeder Ebene nach Datum, abwechselnd ab- und aufsteigend.\nNach Datum sortieren",
         {},
         "view-sort-ascending"},
        {ToggleCosts, "Koste&n", "Umschalten Stunden/Kosten\nh <-> €", {}, "velto-costs", check},
        {ZoomOut, "Ansicht ver&kleinern\tStrg -", "Verkleinert die Ansicht.\nAnsicht verkleinern",
         Keys({kCtrlPad | Qt::Key_Minus, kCtrl | Qt::Key_Minus}), "zoom-out"},
        {ZoomIn, "Ansicht ver&größern\tStrg +", "Vergrößert die Ansicht.\nAnsicht vergrößern",
         Keys({kCtrlPad | Qt::Key_Plus, kCtrl | Qt::Key_Plus}), "zoom-in"},
        {WidthDown, "&Breite verkleinern",
         "Verschiebt die Trennlinie zwischen Knotentexten und Kalender nach links.\nBreite verkleinern"},
        {WidthUp, "Breite &vergrößern",
         "Verschiebt die Trennlinie zwischen Knotentexten und Kalender nach rechts.\nBreite vergrößern"},

        {NodeDone,
         "&Erledigt !",
         "Markiert den Knoten als erledigt oder wieder als offen.\nErledigt",
         {},
         "",
         check},
        {NodeBold, "&Fett", "Zeigt den Knotentitel fett.\nFett", {}, "", check},
        {NodeItalic, "&Kursiv", "Zeigt den Knotentitel kursiv.\nKursiv", {}, "", check},
        {NodeUnderline,
         "&Unterstrichen",
         "Zeigt den Knotentitel unterstrichen.\nUnterstrichen",
         {},
         "",
         check},
        {NodeStrikeOut,
         "&Durchgestrichen",
         "Zeigt den Knotentitel durchgestrichen.\nDurchgestrichen",
         {},
         "",
         check},
        {NodeColor, "F&arbe", "Wählt die Textfarbe des Knotens.\nFarbe"},
        {ClockIn, "E&instempeln", "Startet die Zeiterfassung für die markierte Aufgabe.\nEinstempeln"},
        {ClockOut, "Au&sstempeln", "Beendet die Zeiterfassung und trägt die Stunden ein.\nAusstempeln"},

        {NoteBold, "&Fett", "Formatiert den markierten Notiztext fett.\nFett", {}, "format-text-bold", check},
        {NoteItalic,
         "&Kursiv",
         "Formatiert den markierten Notiztext kursiv.\nKursiv",
         {},
         "format-text-italic",
         check},
        {NoteUnderline,
         "&Unterstrichen",
         "Unterstreicht den markierten Notiztext.\nUnterstrichen",
         {},
         "format-text-underline",
         check},
        {NoteFont, "&Zeichen...", "Wählt Schriftart und Schriftgröße des markierten Notiztextes.\nZeichen"},
        {InsertHyperlink, "&Hyperlink einfügen...",
         "Fügt einen Verweis auf eine Datei oder Internetadresse in die Notiz ein.\nHyperlink einfügen"},
        {NoteBullets,
         "Auf&zählung",
         "Macht die markierten Absätze zu einer Aufzählung oder wieder zu Absätzen "
         "(Strg+Umschalt+L).\nAufzählung",
         {},
         "format-list-unordered",
         check},
        {NoteNumbering,
         "&Nummerierung",
         "Nummeriert die markierten Absätze oder hebt die Nummerierung auf (Strg+Umschalt+N).\nNummerierung",
         {},
         "format-list-ordered",
         check},
        {NoteIndentMore,
         "Einzug ver&größern",
         "Rückt die markierten Absätze weiter ein; in einer Liste eine Ebene tiefer (Strg+M).\nEinzug "
         "vergrößern",
         {},
         "format-indent-more"},
        {NoteIndentLess,
         "Einzug ver&kleinern",
         "Nimmt den Einzug der markierten Absätze zurück; in einer Liste eine Ebene höher "
         "(Strg+Umschalt+M).\nEinzug verkleinern",
         {},
         "format-indent-less"},

        {HoursReport, "St&unden-Report...", "Listet die erfassten Stunden eines Zeitraums.\nStunden-Report"},
        {CostReport, "K&osten-Report...", "Listet die erfassten Kosten.\nKosten-Report"},
        {ExportCalendar, "&Kalender (.ics)...",
         "Speichert Aufgaben, Meilensteine und Erinnerungen als Kalenderdatei.\nKalender exportieren"},
        {ImportVt4, "VT4 Datei &importieren",
         "Startet das Umwandlungsprogramm für Projekte der Version 4.\nVT4 importieren"},
        {Manual, "&Einführung", "Öffnet das Handbuch.\nEinführung", Keys({QKeyCombination(Qt::Key_F1)}),
         "help-contents"},
        {NoteToolbar,
         "Notiz S&ymbolleiste",
         "Blendet die Schaltflächen der Notiz ein oder aus.\nNotiz Symbolleiste",
         {},
         "",
         check},
        {MindMapMode, "Mind Map", "Schaltet um in die Ansicht Mind Map.\nMind Map", {}, "velto-mind-map"},
        {TimelineMode,
         "Knoten Ansicht",
         "Schaltet um in die Knotenansicht mit dem Zeitplan.\nKnoten Ansicht",
         {},
         "velto-timeline"},
        {Settings, "E&instellungen...", "Ändert die Einstellungen.\nEinstellungen", {}, "preferences-system"},
        {Holidays, "Feiertage, Urlaub, ...", "Bearbeitet Feiertage und Urlaubstage.\nFeiertage, Urlaub"},
        {HolidaysNoDoc, "Feiertage, Urlaub, ...", "Bearbeitet Feiertage und Urlaubstage.\nFeiertage, Urlaub"},
        {Assignees, "Bearbeiter / Komission",
         "Bearbeitet die vordefinierten Bearbeiter.\nBearbeiter / Komission"},

        {ViewToolbar, "&Symbolleiste", "Blendet die Symbolleiste ein oder aus.\nSymbolleiste", {}, "", check},
        {ViewStatusBar,
         "Status&leiste",
         "Blendet die Statusleiste ein oder aus.\nStatusleiste",
         {},
         "",
         check},
        {WindowCascade, "Ü&berlappend", "Ordnet die Projektfenster überlappend an.\nÜberlappend"},
        {WindowTile, "&Nebeneinander", "Ordnet die Projektfenster nebeneinander an.\nNebeneinander"},
        {NextPane, "Nächster &Bereich\tF6",
         "Wechselt in den nächsten Bereich des Fensters.\nNächster Bereich",
         Keys({QKeyCombination(Qt::Key_F6)})},
        {PrevPane, "&Vorheriger Bereich\tUmschalt+F6",
         "Wechselt in den vorherigen Bereich des Fensters.\nVorheriger Bereich", Keys({kShift | Qt::Key_F6})},
    };
}
} // namespace

const std::vector<CommandInfo>& CommandTable() {
    static const std::vector<CommandInfo> table = BuildTable();
    return table;
}

const CommandInfo* FindCommand(int id) {
    const auto& table = CommandTable();
    const auto it =
        std::find_if(table.begin(), table.end(), [id](const CommandInfo& c) { return c.id == id; });
    return it == table.end() ? nullptr : &*it;
}

} // namespace velto
