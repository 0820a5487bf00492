#include "ProjectCommands.h"

#include "CliFiles.h"
#include "ExitStatus.h"
#include "ProjectJson.h"
#include "document/ProjectFile.h"
#include "model/ProjectNode.h"

#include <array>
#include <ostream>

namespace velto {

int LoadProject(const std::string& path, ProjectContent& content, ReadResult& result, std::ostream& err) {
    std::string error;
    if (!ReadProjectInput(path, content, result, error)) {
        err << error << '\n';
        return kExitFileError;
    }
    switch (result.status) {
    case ReadStatus::Ok:
        return kExitOk;
    case ReadStatus::WrongFormat:
        err << path << ": " << result.Message(path) << '\n';
        return kExitWrongFormat;
    case ReadStatus::Error:
        break;
    }
    err << result.Message(path) << '\n';
    return kExitFileError;
}

namespace {

int Save(const ProjectContent& content, const std::string& path, std::ostream& err) {
    std::string error;
    const auto produce = [&content](const PieceWriter& put) {
        WriteProject(content.view, content.assigneeHistory, content.remarkHistory, content.firstNode, put);
    };
    if (!WriteOutput(path, produce, error)) {
        err << error << '\n';
        return kExitFileError;
    }
    return kExitOk;
}

struct Totals {
    std::array<int, 4> kinds{}; // project nodes, tasks, notes, milestones
    int otherKinds = 0;
    int nodes = 0;
    int doneTasks = 0;
    int hours = 0;
    int costsCalculated = 0;
    int costsNeeded = 0;
};

Totals Count(const CProjectNode* first) {
    Totals totals;
    for (const CProjectNode* node = first; node; node = node->m_pNext) {
        ++totals.nodes;
        if (node->m_nKind >= 0 && node->m_nKind < int(totals.kinds.size()))
            ++totals.kinds[node->m_nKind];
        else
            ++totals.otherKinds;
        if (node->m_nKind == kKindTask && node->m_bDone)
            ++totals.doneTasks;
        totals.hours += int(node->m_pHours.size());
        totals.costsCalculated += int(node->m_pCosts.size());
        totals.costsNeeded += int(node->m_pCosts2.size());
    }
    return totals;
}

void PrintInfo(const std::string& path, const ProjectContent& content, const ReadResult& result,
               std::ostream& out) {
    const ProjectViewValues& view = content.view;
    const Totals totals = Count(content.firstNode);
    out << "Datei: " << path << '\n';
    out << "Diagrammbreiten: " << view.chartWidth1 << ", " << view.chartWidth2 << '\n';
    out << "Fenster (links, oben, rechts, unten): " << view.windowRect[0] << ", " << view.windowRect[1]
        << ", " << view.windowRect[2] << ", " << view.windowRect[3]
        << "; maximiert: " << (view.maximized ? "ja" : "nein") << '\n';
    out << "Zoomstufe: " << view.zoom << '\n';
    out << "Knoten: " << totals.nodes << " (Projektknoten " << totals.kinds[kKindProject] << ", Aufgaben "
        << totals.kinds[kKindTask] << ", Notizen " << totals.kinds[kKindNote] << ", Meilensteine "
        << totals.kinds[kKindMilestone];
    if (totals.otherKinds)
        out << ", unbekannte Art " << totals.otherKinds;
    out << ")\n";
    out << "Erledigte Aufgaben: " << totals.doneTasks << '\n';
    out << "Stundeneinträge: " << totals.hours << '\n';
    out << "Kosteneinträge: " << totals.costsCalculated << " kalkuliert, " << totals.costsNeeded
        << " benötigt\n";
    if (result.trailingBytes)
        out << "Ungelesene Bytes am Dateiende: " << result.trailingBytes << '\n';
}

} // namespace

int RunInfo(const std::string& path, std::ostream& out, std::ostream& err) {
    ProjectContent content;
    ReadResult result;
    const int status = LoadProject(path, content, result, err);
    if (status != kExitFileError)
        PrintInfo(path, content, result, out);
    return status;
}

int RunDump(const std::string& path, std::ostream& out, std::ostream& err) {
    ProjectContent content;
    ReadResult result;
    const int status = LoadProject(path, content, result, err);
    if (status != kExitFileError)
        WriteProjectJson(content, out);
    return status;
}

int RunBuild(const std::string& jsonPath, const std::string& outPath, std::ostream&, std::ostream& err) {
    ProjectContent content;
    bool built = false;
    std::string readError, jsonError;
    const auto build = [&](const JsonPieceReader& read) {
        built = ProjectFromJson(read, content, jsonError);
    };
    if (!ReadInputInPieces(jsonPath, build, readError)) {
        err << readError << '\n';
        return kExitFileError;
    }
    if (!built) {
        err << jsonPath << ": " << jsonError << '\n';
        return kExitFileError;
    }
    return Save(content, outPath, err);
}

int RunResave(const std::string& inPath, const std::string& outPath, std::ostream&, std::ostream& err) {
    ProjectContent content;
    ReadResult result;
    const int status = LoadProject(inPath, content, result, err);
    if (status == kExitFileError)
        return status;
    const int saved = Save(content, outPath, err);
    return saved == kExitOk ? status : saved;
}

} // namespace velto
