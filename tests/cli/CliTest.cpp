// velto-cli as a script uses it, run in-process in a temporary folder: exit codes, what goes to stdout
// and stderr, dump then build giving back the same bytes, and no output file left behind by a failure.
#include "CliCommands.h"
#include "core/outline/OutlineTestSupport.h"
#include "document/ProjectFile.h"
#include "outline/SearchTexts.h"
#include "support/TempDir.h"

#include <bit>
#include <cfloat>
#include <functional>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

namespace velto {

namespace fs = std::filesystem;
using nlohmann::json;
using testsupport::ReadFile;
using testsupport::ReadFileBytes;
using testsupport::WriteFile;

namespace {

struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
};

float FromBits(uint32_t bits) {
    return std::bit_cast<float>(bits);
}

// Everything the file can hold, with the awkward values: every byte value in a text, long texts,
// negative and extreme integers, and float bit patterns JSON numbers cannot carry directly.
ProjectContent RichProject() {
    ProjectContent content;
    content.view = ProjectViewValues{-5, INT32_MIN, 0xFFFFFFFF, {-100, 20, INT32_MAX, 700}, 50};
    content.firstNode = charttest::BuildList({{0, kKindProject, "Projekt \"M\xFCller\" \\ \x80"},
                                              {1, kKindTask, std::string(300, 'T')},
                                              {1, kKindNote, "Notiz"},
                                              {1, kKindMilestone, "Meilenstein"},
                                              {-2, 7, "unbekannte Art"}});
    CProjectNode* root = content.firstNode;
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte)
        allBytes += char(byte);
    root->m_strNote = allBytes;
    root->m_fHoursPlanned = FromBits(0x7FC00000); // the plain NaN
    root->m_fHoursNeeded = FromBits(0xFFC00000);  // the NaN arithmetic gives on this machine
    root->m_fHourlyRate = FromBits(0x7F800001);   // signalling NaN
    root->m_fCostPlanned = -0.0f;
    root->m_fCostNeeded = FromBits(0xFF800000);
    CProjectNode* task = root->m_pNext;
    task->m_strNote = std::string(70000, 'n');
    task->m_bDone = 1;
    task->m_crColor = INT32_MIN;
    task->m_nRemind5 = -1;
    task->m_timeReminder = CTime(UINT32_MAX);
    task->m_fHoursPlanned = FLT_MAX;
    task->m_fHoursNeeded = FLT_TRUE_MIN;
    task->m_pHours = {{CTime(1790000000), CTime(1790003600), CTime(1790007200), "Max", "Aufbau"},
                      {CTime(1790086400), CTime(1790090000), CTime(1790093600), "", "\t"}};
    task->m_pCosts = {{CTime(1790000000), 50.0f, 8.0f, -400.0f, "Bear.", "Kalkulierte Stunden"},
                      {CTime(1790000000), 19.99f, 3.0f, -59.97f, "Bear.", "Material"}};
    task->m_pCosts2 = {{CTime(1790086400), 50.0f, 2.5f, -125.0f, "Bear.", "Benötigte Stunden"}};
    CProjectNode* milestone = charttest::Find(root, "Meilenstein");
    milestone->m_strResponsible = "Max Mustermann \xAB\xBB MM";
    milestone->m_bDone = 1; // done, but no task
    return content;
}

class CliTest : public testsupport::TempDirTest {
protected:
    static CliRun Run(const std::vector<std::string>& arguments) {
        std::ostringstream out, err;
        const int status = RunCommandLine(arguments, out, err);
        return {status, out.str(), err.str()};
    }

    // Writes the rich project to a.VT5 and returns its dump.
    json DumpOfRichProject() const {
        WriteFile(PathOf("a.VT5"), WriteProject(RichProject()));
        return json::parse(Run({"dump", PathOf("a.VT5")}).out);
    }
};

TEST_F(CliTest, HelpGoesToStdoutAndWrongUsageToStderr) {
    const CliRun help = Run({"--help"});
    EXPECT_EQ(std::tuple(help.status, help.err), std::tuple(0, ""));
    EXPECT_NE(help.out.find("dump DATEI"), std::string::npos);
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {}, {"info"}, {"dump", "a", "b"}, {"build", "a.json"}, {"frobnicate", "a"}, {"--help", "x"}}) {
        const CliRun wrong = Run(arguments);
        EXPECT_EQ(std::tuple(wrong.status, wrong.out), std::tuple(1, "")) << arguments.size();
        EXPECT_NE(wrong.err.find("Aufruf"), std::string::npos);
    }
}

TEST_F(CliTest, DumpThenBuildAndResaveGiveBackTheSameBytes) {
    ProjectContent content = RichProject();
    // 600 more nodes for the float fields: the edge bit patterns first, then random ones. 0x15AE43FD
    // (7.038531e-26) is one of the two finite floats whose shortest decimal, read as a double and
    // rounded to float, lands on the neighbour.
    CProjectNode* last = charttest::Find(content.firstNode, "unbekannte Art");
    charttest::AppendCopies(last, 600);
    const std::vector<uint32_t> edges{0x00000000, 0x80000000, 0x00000001, 0x007FFFFF, 0x00800000, 0x7F7FFFFF,
                                      0xFF7FFFFF, 0x3F800001, 0x4B800001, 0x7FFFFFFF, 0x15AE43FD, 0x95AE43FD};
    std::mt19937 random(20261122);
    size_t edge = 0;
    for (CProjectNode* node = last->m_pNext; node; node = node->m_pNext)
        for (float* field : {&node->m_fHoursPlanned, &node->m_fHoursNeeded, &node->m_fHourlyRate,
                             &node->m_fCostPlanned, &node->m_fCostNeeded})
            *field = FromBits(edge < edges.size() ? edges[edge++] : random());
    const std::vector<uint8_t> original = WriteProject(content);
    WriteFile(PathOf("a.VT5"), original);
    // The inputs are read through symbolic links.
    fs::create_symlink(PathOf("a.VT5"), PathOf("link.VT5"));

    const CliRun dump = Run({"dump", PathOf("link.VT5")});
    ASSERT_EQ(std::tuple(dump.status, dump.err), std::tuple(0, ""));
    WriteFile(PathOf("a.json"), dump.out);
    fs::create_symlink(PathOf("a.json"), PathOf("link.json"));
    const CliRun build = Run({"build", PathOf("link.json"), PathOf("b.VT5")});
    ASSERT_EQ(build.status, 0) << build.err;
    EXPECT_EQ(ReadFileBytes(PathOf("b.VT5")), original);

    ASSERT_EQ(Run({"resave", PathOf("a.VT5"), PathOf("c.VT5")}).status, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("c.VT5")), original);
}

// The field names and the usual values are pinned by the sample project's JSON below; here the extremes.
TEST_F(CliTest, DumpWritesExtremeValuesAsDocumented) {
    const json dump = DumpOfRichProject();
    EXPECT_EQ(dump["chartWidth2"], INT32_MIN);
    EXPECT_EQ(dump["maximized"], 0xFFFFFFFFu);
    EXPECT_EQ(dump["windowRect"], json({-100, 20, INT32_MAX, 700}));
    EXPECT_EQ(dump["nodes"][1]["reminder"], UINT32_MAX);
    const json& root = dump["nodes"][0];
    EXPECT_EQ(root["title"], "Projekt \"Müller\" \\ €");
    EXPECT_EQ(root["hoursPlanned"], "NaN");
    EXPECT_EQ(root["hoursNeeded"], "NaN(0xFFC00000)");
    EXPECT_EQ(root["hourlyRate"], "NaN(0x7F800001)");
    EXPECT_EQ(root["costNeeded"], "-Infinity");
    const std::string note = root["note"];
    EXPECT_EQ(note.substr(0, 3), std::string("\0\x01\x02", 3));
    EXPECT_EQ(note.substr(note.size() - 4), "þÿ");
    const std::string text = Run({"dump", PathOf("a.VT5")}).out;
    EXPECT_NE(text.find("\"hoursPlanned\": 3.4028235e+38,\n      \"hoursNeeded\": 1e-45,"),
              std::string::npos);
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

TEST_F(CliTest, UnreadableInputOrUnwritableOutputGivesStatusTwoAndLeavesNoFile) {
    std::vector<uint8_t> bytes = WriteProject(RichProject());
    WriteFile(PathOf("a.VT5"), bytes);
    bytes.resize(bytes.size() / 2);
    WriteFile(PathOf("kaputt.VT5"), bytes);
    for (const char* command : {"info", "dump"}) {
        const CliRun run = Run({command, PathOf("kaputt.VT5")});
        EXPECT_EQ(std::tuple(run.status, run.out), std::tuple(2, "")) << command;
        EXPECT_NE(run.err.find("kaputt.VT5"), std::string::npos) << run.err;
        EXPECT_NE(run.err.find("Notiz von Knoten 2 (Byte "), std::string::npos) << run.err;
    }
    EXPECT_EQ(Run({"resave", PathOf("kaputt.VT5"), PathOf("out.VT5")}).status, 2);
    EXPECT_EQ(Run({"dump", PathOf("fehlt.VT5")}).status, 2);
    EXPECT_EQ(Run({"dump", Dir()}).status, 2);
    fs::create_directory(PathOf("ziel"));
    const CliRun resave = Run({"resave", PathOf("a.VT5"), PathOf("ziel")});
    EXPECT_EQ(resave.status, 2);
    EXPECT_NE(resave.err.find("ziel"), std::string::npos);
    EXPECT_EQ(Run({"resave", PathOf("a.VT5"), PathOf("gibt-es-nicht/b.VT5")}).status, 2);
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.VT5", "kaputt.VT5", "ziel"}));
}

TEST_F(CliTest, WrongFormatGivesStatusThreeWithTheReplacementDocument) {
    ProjectContent content = RichProject();
    content.view.zoom = 51;
    WriteFile(PathOf("z.VT5"), WriteProject(content));
    const CliRun dump = Run({"dump", PathOf("z.VT5")});
    EXPECT_EQ(dump.status, 3);
    EXPECT_NE(dump.err.find("Falsches Dateiformat!"), std::string::npos);
    EXPECT_EQ(json::parse(dump.out)["nodes"][0]["title"], "Neuer Knoten");
    EXPECT_EQ(Run({"info", PathOf("z.VT5")}).status, 3);
    EXPECT_EQ(Run({"resave", PathOf("z.VT5"), PathOf("neu.VT5")}).status, 3);
    EXPECT_EQ(Run({"dump", PathOf("neu.VT5")}).out, dump.out);
}

TEST_F(CliTest, BuildReadsHandWrittenNumbers) {
    json document = DumpOfRichProject();
    json& task = document["nodes"][1];
    task["hourlyRate"] = 0.1;          // a double: the float nearest to it
    task["hoursPlanned"] = 12;         // an integer
    task["hoursNeeded"] = 0.100000001; // not a shortest form: rounded
    task["costPlanned"] = "Infinity";
    WriteFile(PathOf("a.json"), document.dump());
    ASSERT_EQ(Run({"build", PathOf("a.json"), PathOf("b.VT5")}).status, 0);
    EXPECT_NE(Run({"dump", PathOf("b.VT5")})
                  .out.find("\"hoursPlanned\": 12.0,\n      \"hoursNeeded\": 0.1,\n"
                            "      \"hourlyRate\": 0.1,\n      \"costPlanned\": \"Infinity\","),
              std::string::npos);
}

TEST_F(CliTest, BuildRejectsBadValuesNamingTheFieldAndLeavesNoOutput) {
    const json good = DumpOfRichProject();
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

// The independent library writes keys sorted by name, so "nodes" comes before "zoom" here: the
// message still names the problem of the first field in file order, and a syntax error anywhere
// comes before both.
TEST_F(CliTest, BuildNamesTheFirstProblemInFieldOrderWhateverTheKeyOrder) {
    json both = DumpOfRichProject();
    both["zoom"] = -1;
    both["nodes"][1]["title"] = "Ω";
    json node = DumpOfRichProject();
    node["nodes"][1].erase("hours");
    node["nodes"][1]["zz"] = 1;
    node["nodes"][1]["Menge"] = 1;
    json unknown = DumpOfRichProject();
    unknown["nodes"][1]["zz"] = 1;
    unknown["nodes"][1]["Menge"] = 1;
    const std::vector<std::pair<std::string, std::string>> cases{
        {both.dump(), "zoom: ganze Zahl"},
        {node.dump(), "nodes[1].hours: Feld fehlt"},
        {unknown.dump(), "nodes[1]: unbekanntes Feld \"Menge\""},
        {both.dump() + " x", "kein gültiges JSON: Zeile 1, Spalte "},
        {"{\"zoom\": 1e400}", "kein gültiges JSON: Zeile 1, Spalte 15: Zahl zu groß"},
        {"[]", "kein JSON-Objekt"},
    };
    for (const auto& [text, message] : cases) {
        WriteFile(PathOf("in.json"), text);
        const CliRun build = Run({"build", PathOf("in.json"), PathOf("b.VT5")});
        EXPECT_EQ(build.status, 2) << message;
        EXPECT_EQ(build.err.find(PathOf("in.json") + ": " + message), 0u) << build.err;
    }
}

// Of a key given twice the last value counts, as in the independent library; a byte order mark is
// passed over.
TEST_F(CliTest, BuildTakesTheLastOfARepeatedKeyAndAByteOrderMark) {
    std::string text = DumpOfRichProject().dump();
    text.insert(1, "\"zoom\": -1, \"nodes\": [{}], ");
    WriteFile(PathOf("in.json"), "\xEF\xBB\xBF" + text);
    ASSERT_EQ(Run({"build", PathOf("in.json"), PathOf("b.VT5")}).status, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("b.VT5")), ReadFileBytes(PathOf("a.VT5")));
}

TEST_F(CliTest, SampleProjectJsonBuildsTheCommittedFile) {
    const fs::path examples = fs::path(VELTO_SOURCE_DIR) / "examples";
    ASSERT_EQ(Run({"build", (examples / "Beispielprojekt.json").string(), PathOf("b.VT5")}).status, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("b.VT5")), ReadFileBytes(examples / "Beispielprojekt.VT5"));
    const CliRun dump = Run({"dump", (examples / "Beispielprojekt.VT5").string()});
    EXPECT_EQ(std::tuple(dump.status, dump.out), std::tuple(0, ReadFile(examples / "Beispielprojekt.json")));
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
        EXPECT_NE(missing.err.find("fehlt.rtf"), std::string::npos);
    }
}

// The positions at which the search dialog stops, stepping forward from the last node round once.
std::vector<size_t> DialogStops(CProjectNode* first, std::string_view text, bool matchCase) {
    SearchTexts texts;
    texts.Update(first);
    SelectOnly(first, texts.NodeAt(texts.Count() - 1));
    std::vector<size_t> stops;
    while (CProjectNode* node = SearchStep(first, SearchText(text, matchCase), kSearchForward, texts).node) {
        SelectOnly(first, node);
        texts.Update(first);
        if (!stops.empty() && texts.SelectedPosition() <= stops.back())
            break;
        stops.push_back(texts.SelectedPosition());
    }
    return stops;
}

std::vector<size_t> Indexes(const std::string& lines) {
    std::vector<size_t> indexes;
    std::istringstream in(lines);
    for (std::string line; std::getline(in, line);)
        indexes.push_back(std::stoul(line));
    return indexes;
}

TEST_F(CliTest, SearchListsTheNodesTheDialogStopsAtWithTheirParts) {
    ProjectContent content = RichProject();
    WriteFile(PathOf("a.VT5"), WriteProject(content));
    const CliRun hours = Run({"search", PathOf("a.VT5"), "STUNDEN"});
    EXPECT_EQ(std::tuple(hours.status, hours.out, hours.err),
              std::tuple(0, "1\tcb\t" + std::string(300, 'T') + "\n", ""));
    EXPECT_EQ(Run({"search", PathOf("a.VT5"), "STUNDEN", "--case"}).out, "");
    EXPECT_EQ(Run({"search", PathOf("a.VT5"), "müller"}).out, "0\tt\tProjekt \"Müller\" \\ €\n");
    for (const char* text : {"ein", "nnn", "max", "bear", "e"})
        EXPECT_EQ(Indexes(Run({"search", PathOf("a.VT5"), text}).out),
                  DialogStops(content.firstNode, text, false))
            << text;
    EXPECT_EQ(Run({"search", PathOf("a.VT5"), "n\u2192"}).out, "") << "no arrow in Windows-1252";

    EXPECT_EQ(Run({"search", PathOf("fehlt.VT5"), "x"}).status, 2);
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"search", PathOf("a.VT5")}, {"search", PathOf("a.VT5"), "x", "--Case"}})
        EXPECT_EQ(Run(arguments).status, 1);
}

} // namespace

} // namespace velto
