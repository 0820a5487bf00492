// velto-cli as a script uses it: exit codes, what goes to stdout and stderr, dump then build giving
// back the same bytes, and no output file left behind by a failure.
#include "CliTestSupport.h"
#include "document/ProjectFile.h"

#include <bit>
#include <cfloat>
#include <functional>
#include <nlohmann/json.hpp>
#include <random>

namespace velto {

using namespace clitest;
using nlohmann::json;

namespace {

CProjectNode* AddNode(ProjectContent& content, int kind, int level, const std::string& title) {
    auto* node = new CProjectNode(NodeDefaults{CTime(1790000000), CTime(1790000100), CTime(1790900000)});
    node->m_nKind = kind;
    node->m_nLevel = level;
    node->m_strTitle = title;
    node->m_bSelected = 0;
    CProjectNode** link = &content.firstNode;
    CProjectNode* previous = nullptr;
    while (*link) {
        previous = *link;
        link = &(*link)->m_pNext;
    }
    node->m_pPrev = previous;
    *link = node;
    return node;
}

void AddHours(CProjectNode& node, uint32_t day, const std::string& assignee, const std::string& remark) {
    node.m_pHours.Append({CTime(day), CTime(day + 3600), CTime(day + 7200), assignee, remark});
}

CCostEntry Cost(uint32_t day, float price, float quantity, std::string_view remark) {
    return {CTime(day), price, quantity, -price * quantity, "Bear.", remark};
}

float FromBits(uint32_t bits) {
    return std::bit_cast<float>(bits);
}

// Everything the file can hold, with the awkward values: every byte value in a text, long texts,
// negative and extreme integers, and float bit patterns JSON numbers cannot carry directly.
ProjectContent RichProject() {
    ProjectContent content;
    content.view = ProjectViewValues{-5, INT32_MIN, 0xFFFFFFFF, {-100, 20, INT32_MAX, 700}, 50};
    for (int i = 0; i < 10; ++i) {
        content.assigneeHistory[i] = "Bearbeiter " + std::to_string(i);
        content.remarkHistory[i] = i % 2 ? "" : "Bemerkung \xE4\xF6\xFC\x80";
    }
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte)
        allBytes += char(byte);

    CProjectNode* root = AddNode(content, kKindProject, 0, "Projekt \"M\xFCller\" \\ \x80");
    root->m_strNote = allBytes;
    root->m_bSelected = 1;
    root->m_fHoursPlanned = FromBits(0x7FC00000); // the plain NaN
    root->m_fHoursNeeded = FromBits(0xFFC00000);  // the NaN arithmetic gives on this machine
    root->m_fHourlyRate = FromBits(0x7F800001);   // signalling NaN
    root->m_fCostPlanned = -0.0f;
    root->m_fCostNeeded = FromBits(0xFF800000);
    CProjectNode* task = AddNode(content, kKindTask, 1, std::string(300, 'T'));
    task->m_strNote = std::string(70000, 'n');
    task->m_bDone = 1;
    task->m_crColor = INT32_MIN;
    task->m_nRemind5 = -1;
    task->m_timeReminder = CTime(UINT32_MAX);
    task->m_fHoursPlanned = FLT_MAX;
    task->m_fHoursNeeded = FLT_TRUE_MIN;
    task->m_fHourlyRate = 0.1f;
    task->m_fCostPlanned = -FLT_MIN;
    task->m_fCostNeeded = 16777217.0f;
    AddHours(*task, 1790000000, "Max", "Aufbau");
    AddHours(*task, 1790086400, "", "\t");
    task->m_pCosts = {Cost(1790000000, 50.0f, 8.0f, "Kalkulierte Stunden"),
                      Cost(1790000000, 19.99f, 3.0f, "Material")};
    task->m_pCosts2 = {Cost(1790086400, 50.0f, 2.5f, "Benötigte Stunden")};
    AddNode(content, kKindNote, 1, "Notiz");
    AddNode(content, kKindMilestone, 1, "Meilenstein")->m_strResponsible = "Max Mustermann \xAB\xBB MM";
    AddNode(content, 7, -2, "unbekannte Art");
    return content;
}

} // namespace

TEST_F(CliTest, HelpGoesToStdoutAndWrongUsageToStderr) {
    const CliRun help = Run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("dump DATEI"), std::string::npos);
    EXPECT_EQ(help.err, "");
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {}, {"info"}, {"dump", "a", "b"}, {"build", "a.json"}, {"frobnicate", "a"}, {"--help", "x"}}) {
        const CliRun wrong = Run(arguments);
        EXPECT_EQ(wrong.status, 1) << arguments.size();
        EXPECT_EQ(wrong.out, "");
        EXPECT_NE(wrong.err.find("Aufruf"), std::string::npos);
    }
}

TEST_F(CliTest, DumpThenBuildAndResaveGiveBackTheSameBytes) {
    const std::vector<uint8_t> original = WriteProject(RichProject());
    WriteFile(PathOf("a.VT5"), original);
    // The inputs are read through symbolic links.
    fs::create_symlink(PathOf("a.VT5"), PathOf("link.VT5"));

    const CliRun dump = Run({"dump", PathOf("link.VT5")});
    ASSERT_EQ(dump.status, 0) << dump.err;
    EXPECT_EQ(dump.err, "");
    WriteFile(PathOf("a.json"), dump.out);
    fs::create_symlink(PathOf("a.json"), PathOf("link.json"));
    const CliRun build = Run({"build", PathOf("link.json"), PathOf("b.VT5")});
    ASSERT_EQ(build.status, 0) << build.err;
    EXPECT_EQ(ReadFileBytes(PathOf("b.VT5")), original);

    ASSERT_EQ(Run({"resave", PathOf("a.VT5"), PathOf("c.VT5")}).status, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("c.VT5")), original);
    EXPECT_EQ(Names(),
              (std::vector<std::string>{"a.VT5", "a.json", "b.VT5", "c.VT5", "link.VT5", "link.json"}));
}

TEST_F(CliTest, DumpWritesTheDocumentedJson) {
    WriteFile(PathOf("a.VT5"), WriteProject(RichProject()));
    const json dump = json::parse(Run({"dump", PathOf("a.VT5")}).out);
    EXPECT_EQ(dump["chartWidth2"], INT32_MIN);
    EXPECT_EQ(dump["maximized"], 0xFFFFFFFFu);
    EXPECT_EQ(dump["windowRect"], json({-100, 20, INT32_MAX, 700}));
    EXPECT_EQ(dump["remarkHistory"][0], "Bemerkung äöü€");
    ASSERT_EQ(dump["nodes"].size(), 5u);
    const json& root = dump["nodes"][0];
    EXPECT_EQ(root["title"], "Projekt \"Müller\" \\ €");
    EXPECT_EQ(root["hoursPlanned"], "NaN");
    EXPECT_EQ(root["hoursNeeded"], "NaN(0xFFC00000)");
    EXPECT_EQ(root["hourlyRate"], "NaN(0x7F800001)");
    EXPECT_EQ(root["costNeeded"], "-Infinity");
    const std::string note = root["note"];
    EXPECT_EQ(note.substr(0, 3), std::string("\0\x01\x02", 3));
    EXPECT_NE(note.find("\x7F€\u0081‚ƒ„"), std::string::npos) << "unassigned bytes keep their code point";
    EXPECT_EQ(note.substr(note.size() - 4), "þÿ");
    const json& task = dump["nodes"][1];
    EXPECT_EQ(task["reminder"], UINT32_MAX);
    EXPECT_EQ(task["color"], INT32_MIN);
    EXPECT_EQ(task["remind5"], -1);
    EXPECT_EQ(task["costsCalculated"][1]["quantity"], 3.0);
    EXPECT_EQ(task["costsCalculated"][1]["remark"], "Material");
    EXPECT_EQ(task["hours"][1]["remark"], "\t");
    EXPECT_EQ(dump["nodes"][3]["responsible"], "Max Mustermann «» MM");

    // The float texts themselves: the shortest decimal, and -0.0 keeping its sign.
    const std::string text = Run({"dump", PathOf("a.VT5")}).out;
    for (const char* expected :
         {"\"costPlanned\": -0.0,", "\"hourlyRate\": 0.1,", "\"hoursPlanned\": 3.4028235e+38,",
          "\"hoursNeeded\": 1e-45,", "\"costNeeded\": 16777216.0,", "\"unitPrice\": 19.99,"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
}

TEST_F(CliTest, EveryFloatBitPatternSurvivesDumpAndBuild) {
    ProjectContent content;
    std::mt19937 random(20261122);
    // 0x15AE43FD (7.038531e-26) is one of the two finite floats whose shortest decimal, read as a
    // double and rounded to float, lands on the neighbour.
    const std::vector<uint32_t> edges{0x00000000, 0x80000000, 0x00000001, 0x007FFFFF, 0x00800000, 0x7F7FFFFF,
                                      0xFF7FFFFF, 0x3F800001, 0x4B800001, 0x7FFFFFFF, 0x15AE43FD, 0x95AE43FD};
    for (size_t i = 0; i < 600; ++i) {
        CProjectNode* node = AddNode(content, kKindTask, 1, "n");
        const std::array fields{&node->m_fHoursPlanned, &node->m_fHoursNeeded, &node->m_fHourlyRate,
                                &node->m_fCostPlanned, &node->m_fCostNeeded};
        for (size_t k = 0; k < fields.size(); ++k) {
            const size_t edge = fields.size() * i + k;
            *fields[k] = FromBits(edge < edges.size() ? edges[edge] : random());
        }
    }
    const std::vector<uint8_t> original = WriteProject(content);
    WriteFile(PathOf("f.VT5"), original);
    WriteFile(PathOf("f.json"), Run({"dump", PathOf("f.VT5")}).out);
    ASSERT_EQ(Run({"build", PathOf("f.json"), PathOf("g.VT5")}).status, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("g.VT5")), original);
}

TEST_F(CliTest, InfoCountsNodesByKindAndEntries) {
    WriteFile(PathOf("a.VT5"), WriteProject(RichProject()));
    const CliRun info = Run({"info", PathOf("a.VT5")});
    EXPECT_EQ(info.status, 0);
    for (const char* line :
         {"Zoomstufe: 50\n",
          "Knoten: 5 (Projektknoten 1, Aufgaben 1, Notizen 1, Meilensteine 1, unbekannte Art 1)\n",
          "Erledigte Aufgaben: 1\n", "Stundeneinträge: 2\n", "Kosteneinträge: 2 kalkuliert, 1 benötigt\n"})
        EXPECT_NE(info.out.find(line), std::string::npos) << line << info.out;
}

TEST_F(CliTest, DamagedOrMissingFilesGiveStatusTwoAndNothingElse) {
    std::vector<uint8_t> bytes = WriteProject(RichProject());
    bytes.resize(bytes.size() / 2);
    WriteFile(PathOf("kaputt.VT5"), bytes);
    for (const char* command : {"info", "dump"}) {
        const CliRun run = Run({command, PathOf("kaputt.VT5")});
        EXPECT_EQ(run.status, 2) << command;
        EXPECT_EQ(run.out, "") << command;
        EXPECT_NE(run.err.find("kaputt.VT5"), std::string::npos) << run.err;
        EXPECT_NE(run.err.find("Notiz von Knoten 2 (Byte "), std::string::npos) << run.err;
    }
    EXPECT_EQ(Run({"resave", PathOf("kaputt.VT5"), PathOf("out.VT5")}).status, 2);
    EXPECT_EQ(Run({"dump", PathOf("fehlt.VT5")}).status, 2);
    EXPECT_EQ(Run({"dump", Dir()}).status, 2);
    EXPECT_EQ(Names(), std::vector<std::string>{"kaputt.VT5"});
}

TEST_F(CliTest, WrongFormatGivesStatusThreeWithTheReplacementDocument) {
    ProjectContent content = RichProject();
    content.view.zoom = 51;
    WriteFile(PathOf("z.VT5"), WriteProject(content));
    const CliRun dump = Run({"dump", PathOf("z.VT5")});
    EXPECT_EQ(dump.status, 3);
    EXPECT_NE(dump.err.find("Falsches Dateiformat!"), std::string::npos);
    const json document = json::parse(dump.out);
    EXPECT_EQ(document["zoom"], 20);
    ASSERT_EQ(document["nodes"].size(), 1u);
    EXPECT_EQ(document["nodes"][0]["title"], "Neuer Knoten");

    EXPECT_EQ(Run({"info", PathOf("z.VT5")}).status, 3);
    EXPECT_EQ(Run({"resave", PathOf("z.VT5"), PathOf("neu.VT5")}).status, 3);
    ProjectContent saved;
    EXPECT_EQ(ReadProject(ReadFileBytes(PathOf("neu.VT5")), saved).status, ReadStatus::Ok);
    EXPECT_EQ(saved.firstNode->m_strTitle, "Neuer Knoten");
}

TEST_F(CliTest, BuildReadsHandWrittenNumbers) {
    WriteFile(PathOf("a.VT5"), WriteProject(RichProject()));
    json document = json::parse(Run({"dump", PathOf("a.VT5")}).out);
    json& task = document["nodes"][1];
    task["hourlyRate"] = 0.1;          // a double: the float nearest to it
    task["hoursPlanned"] = 12;         // an integer
    task["hoursNeeded"] = 0.100000001; // not a shortest form: rounded
    task["costPlanned"] = "Infinity";
    WriteFile(PathOf("a.json"), document.dump());
    ASSERT_EQ(Run({"build", PathOf("a.json"), PathOf("b.VT5")}).status, 0);
    ProjectContent built;
    ASSERT_EQ(ReadProject(ReadFileBytes(PathOf("b.VT5")), built).status, ReadStatus::Ok);
    const CProjectNode& node = *built.firstNode->m_pNext;
    EXPECT_EQ(std::bit_cast<uint32_t>(node.m_fHourlyRate), 0x3DCCCCCDu);
    EXPECT_EQ(node.m_fHoursPlanned, 12.0f);
    EXPECT_EQ(node.m_fHoursNeeded, 0.1f);
    EXPECT_EQ(node.m_fCostPlanned, HUGE_VALF);
}

TEST_F(CliTest, BuildRejectsBadValuesNamingTheFieldAndLeavesNoOutput) {
    WriteFile(PathOf("a.VT5"), WriteProject(RichProject()));
    const json good = json::parse(Run({"dump", PathOf("a.VT5")}).out);
    struct Case {
        std::string field;
        std::function<void(json&)> spoil;
    };
    const std::vector<Case> cases{
        {"zoom: ganze Zahl von 0 bis 4294967295", [](json& d) { d["zoom"] = -1; }},
        {"chartWidth1: ganze Zahl von -2147483648", [](json& d) { d["chartWidth1"] = 2147483648u; }},
        {"windowRect: Liste mit 4 Werten", [](json& d) { d["windowRect"].erase(0); }},
        {"windowRect[2]: ganze Zahl", [](json& d) { d["windowRect"][2] = 1.5; }},
        {"remarkHistory[3]: Text erwartet", [](json& d) { d["remarkHistory"][3] = 3; }},
        {"nodes[1].title: Text enthält Zeichen", [](json& d) { d["nodes"][1]["title"] = "Ω"; }},
        {"nodes[1].start: ganze Zahl", [](json& d) { d["nodes"][1]["start"] = 4294967296; }},
        {"nodes[1].hourlyRate: Zahl außerhalb", [](json& d) { d["nodes"][1]["hourlyRate"] = 1e39; }},
        {"nodes[1].hourlyRate: Zahl außerhalb", [](json& d) { d["nodes"][1]["hourlyRate"] = 1e-50; }},
        {"nodes[1].hourlyRate: Zahl oder", [](json& d) { d["nodes"][1]["hourlyRate"] = "NaN(0x7F800000)"; }},
        {"nodes[1].hourlyRate: Zahl oder", [](json& d) { d["nodes"][1]["hourlyRate"] = "nan"; }},
        {"nodes[1].hours[1].remark: Feld fehlt", [](json& d) { d["nodes"][1]["hours"][1].erase("remark"); }},
        {"nodes[1].costsNeeded[0]: unbekanntes Feld \"Menge\"",
         [](json& d) { d["nodes"][1]["costsNeeded"][0]["Menge"] = 1; }},
        {"nodes[2]: Objekt erwartet", [](json& d) { d["nodes"][2] = json::array(); }},
        {"unbekanntes Feld \"version\"", [](json& d) { d["version"] = 2; }},
        {"kein gültiges JSON", [](json&) {}},
    };
    WriteFile(PathOf("old.VT5"), "alt");
    for (const Case& c : cases) {
        json spoilt = good;
        c.spoil(spoilt);
        WriteFile(PathOf("in.json"), c.field == "kein gültiges JSON" ? "{\"zoom\": " : spoilt.dump());
        for (const char* target : {"new.VT5", "old.VT5"}) {
            const CliRun build = Run({"build", PathOf("in.json"), PathOf(target)});
            EXPECT_EQ(build.status, 2) << c.field;
            EXPECT_NE(build.err.find(c.field), std::string::npos) << c.field << "\n" << build.err;
        }
        EXPECT_EQ(ReadFile(PathOf("old.VT5")), "alt");
        EXPECT_EQ(Names(), (std::vector<std::string>{"a.VT5", "in.json", "old.VT5"})) << c.field;
    }
}

TEST_F(CliTest, FailedWriteLeavesNoTemporaryFile) {
    WriteFile(PathOf("a.VT5"), WriteProject(RichProject()));
    fs::create_directory(PathOf("ziel"));
    const CliRun resave = Run({"resave", PathOf("a.VT5"), PathOf("ziel")});
    EXPECT_EQ(resave.status, 2);
    EXPECT_NE(resave.err.find("ziel"), std::string::npos);
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.VT5", "ziel"}));
    EXPECT_EQ(Run({"resave", PathOf("a.VT5"), PathOf("gibt-es-nicht/b.VT5")}).status, 2);
}

TEST_F(CliTest, SampleProjectJsonBuildsTheCommittedFile) {
    const fs::path examples = fs::path(VELTO_SOURCE_DIR) / "examples";
    ASSERT_EQ(Run({"build", (examples / "Beispielprojekt.json").string(), PathOf("b.VT5")}).status, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("b.VT5")), ReadFileBytes(examples / "Beispielprojekt.VT5"));
    const CliRun dump = Run({"dump", (examples / "Beispielprojekt.VT5").string()});
    EXPECT_EQ(dump.status, 0);
    EXPECT_EQ(dump.out, ReadFile(examples / "Beispielprojekt.json"));
}

TEST_F(CliTest, RtfTextAndRewriteReadTheNoteAsTheProgramDoes) {
    WriteFile(PathOf("n.rtf"), "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0 Gr\\'fc\\'dfe\\par \\b Welt}");
    const CliRun text = Run({"rtf-text", PathOf("n.rtf")});
    EXPECT_EQ(std::tuple(text.status, text.out, text.err), std::tuple(0, "Grüße\nWelt\n", ""));
    const CliRun rewritten = Run({"rtf-rewrite", PathOf("n.rtf")});
    EXPECT_EQ(rewritten.status, 0);
    EXPECT_EQ(rewritten.out.rfind("{\\rtf1\\ansi\\ansicpg1252", 0), 0u);

    for (const char* command : {"rtf-text", "rtf-rewrite"}) {
        const CliRun missing = Run({command, PathOf("fehlt.rtf")});
        EXPECT_EQ(std::tuple(missing.status, missing.out), std::tuple(2, ""));
        EXPECT_NE(missing.err.find("kann nicht gelesen werden: Datei oder Ordner nicht gefunden."),
                  std::string::npos);
        EXPECT_NE(Run({command, Dir()}).err.find("ist ein Ordner"), std::string::npos);
    }
}

} // namespace velto
