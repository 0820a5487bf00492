#pragma once

// Every command of the program by its number. The numbers are the ones the program has always had:
// they turn up in the accelerator table, the toolbars and the private messages of the dialogs.
namespace velto::cmd {

// Files and the application
inline constexpr int FileNew = 57600;
inline constexpr int FileOpen = 57601;
inline constexpr int FileClose = 57602;
inline constexpr int FileSave = 57603;
inline constexpr int FileSaveAs = 57604;
inline constexpr int FilePrint = 57607;
inline constexpr int FilePrintDirect = 57608;
inline constexpr int FilePrintPreview = 57609;
// The backups of the open project; a number of the program's own range, not the framework's.
inline constexpr int FileRestoreBackup = 32818;
inline constexpr int FileMru1 = 57616; // the recent-file list: 57616 .. 57619
inline constexpr int RecentFileCount = 4;
inline constexpr int AppAbout = 57664;
inline constexpr int AppExit = 57665;

// Clipboard and undo
inline constexpr int EditCopy = 57634;
inline constexpr int EditCut = 57635;
inline constexpr int EditPaste = 57637;
inline constexpr int EditUndo = 57643;

// Windows and panes
inline constexpr int WindowCascade = 57650;
inline constexpr int WindowTile = 57651;
inline constexpr int NextPane = 57680;
inline constexpr int PrevPane = 57681;
inline constexpr int ViewToolbar = 59392;
inline constexpr int ViewStatusBar = 59393;
inline constexpr int StatusNodeInfo = 59142; // the status pane with the node info line

// The view's node commands
inline constexpr int ZoomOut = 32771;
inline constexpr int ZoomIn = 32772;
inline constexpr int NewNode = 32774;
inline constexpr int EditNode = 32775;
inline constexpr int DeleteNode = 32777;
inline constexpr int CollapseAll = 32779;
inline constexpr int ExpandAll = 32780;
inline constexpr int BackupTree = 32781;
inline constexpr int FindText = 32784;
inline constexpr int HoursReport = 32786;
inline constexpr int InsertHyperlink = 32787;
inline constexpr int ImportVt4 = 32788;
inline constexpr int CostReport = 32789;
inline constexpr int ToggleCosts = 32790;
// 32791 is the note's bold command while a view is active and the settings without a document.
inline constexpr int NoteBold = 32791;
inline constexpr int SettingsNoDoc = 32791;
inline constexpr int NoteItalic = 32792;
inline constexpr int NoteUnderline = 32793;
inline constexpr int Settings = 32794;
inline constexpr int Holidays = 32795;
inline constexpr int HolidaysNoDoc = 32796;
inline constexpr int NoteToolbar = 32797;
inline constexpr int Manual = 32798;
inline constexpr int NodeDone = 32799;
inline constexpr int NoteFont = 32800;
inline constexpr int NodeItalic = 32801;
inline constexpr int NodeUnderline = 32802;
inline constexpr int NodeStrikeOut = 32803;
inline constexpr int NodeBold = 32804;
inline constexpr int NodeColor = 32805;
inline constexpr int SortByDate = 32806;
inline constexpr int MindMapMode = 32808;
inline constexpr int TimelineMode = 32809;
inline constexpr int ClockIn = 32810;
inline constexpr int ClockOut = 32811;
inline constexpr int WidthDown = 32812;
inline constexpr int WidthUp = 32813;
inline constexpr int MyTasks = 32816;
inline constexpr int Assignees = 32817;
// The note's lists and indents; numbers of the program's own range.
inline constexpr int NoteBullets = 32819;
inline constexpr int NoteNumbering = 32820;
inline constexpr int NoteIndentMore = 32821;
inline constexpr int NoteIndentLess = 32822;
// "Datei → Exportieren"; numbers of the program's own range.
inline constexpr int ExportCalendar = 32840;

// Private messages of the modeless dialogs and the note pane to the view and the chart
inline constexpr int SaveNote = 138;
inline constexpr int GoToAlarmNode = 139;
inline constexpr int SearchStep = 140;
inline constexpr int MyTasksChosen = 153;

} // namespace velto::cmd
