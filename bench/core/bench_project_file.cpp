// Loading and saving a large project file: 100,000 nodes with notes, hours and cost entries, about
// 100 MB, read from and written to a file on disk. Peak memory is measured in a fresh child
// process (this binary started again), so that nothing the benchmark itself holds is counted.
#include "document/ProjectFile.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int kNodeCount = 100000;
constexpr const char* kChildVariable = "VELTO_BENCH_PEAK_FILE";

std::string NoteFor(int index) {
    std::string note =
        "{\\rtf1\\ansi\\deff0\\deftab720{\\fonttbl{\\f0\\fswiss MS Sans Serif;}{\\f1\\froman\\fcharset2 "
        "Symbol;}{\\f2\\fswiss Arial;}}\n{\\colortbl\\red0\\green0\\blue0;}\n\\deflang1031\\pard\\plain"
        "\\f2\\fs24 Arbeitspaket " +
        std::to_string(index) + "\\par ";
    for (int line = 0; line < 9; ++line)
        note += "Abstimmung mit dem Auftraggeber, Entwurf pr\\'fcfen und Ergebnisse festhalten.\\par ";
    return note + "}";
}

CCostEntry* Cost(CTime day, float price, float quantity, const char* remark) {
    return new CCostEntry{day, price, quantity, -price * quantity, "", remark, nullptr};
}

ProjectContent GenerateProject() {
    ProjectContent content;
    const NodeDefaults defaults{CTime(1795000000), CTime(1795000000), CTime(1795080000)};
    CProjectNode* last = nullptr;
    for (int i = 0; i < kNodeCount; ++i) {
        auto* node = new CProjectNode(defaults);
        node->m_nKind = i % 10 == 0 ? KIND_PROJECT : KIND_TASK;
        node->m_nLevel = i == 0 ? 0 : (i % 10 == 0 ? 1 : 2);
        node->m_bSelected = i == 0;
        node->m_strTitle = "Aufgabe " + std::to_string(i);
        node->m_strNote = NoteFor(i);
        node->m_strResponsible = "Max Mustermann \xAB\xBB MM";
        node->m_fHourlyRate = 85.0f;
        node->m_fHoursPlanned = float(i % 40);
        const CTime day(1795000000 + uint32_t(i % 60) * 86400);
        node->m_pHours = new CHoursEntry{day, day + 8 * 3600, day + 12 * 3600, "MM", "Entwurf", nullptr};
        node->m_pHours->m_pNext =
            new CHoursEntry{day, day + 13 * 3600, day + 17 * 3600, "MM", "Abnahme", nullptr};
        node->m_pCosts = Cost(day, 85.0f, node->m_fHoursPlanned, "Kalkulierte Stunden");
        node->m_pCosts2 = Cost(day, 85.0f, 8.0f, "Benötigte Stunden");
        node->m_pPrev = last;
        (last ? last->m_pNext : content.firstNode) = node;
        last = node;
    }
    return content;
}

std::vector<uint8_t> ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    std::vector<uint8_t> bytes(size_t(in.tellg()));
    in.seekg(0);
    in.read(reinterpret_cast<char*>(bytes.data()), std::streamsize(bytes.size()));
    return bytes;
}

// Written as a save does it: a temporary file beside the target, renamed into place.
void WriteFile(const std::string& path, const std::vector<uint8_t>& bytes) {
    const std::string temporary = path + ".tmp";
    std::FILE* file = std::fopen(temporary.c_str(), "wb");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
    std::rename(temporary.c_str(), path.c_str());
}

ReadStatus LoadFromDisk(const std::string& path, ProjectContent& content) {
    return ReadProject(ReadFile(path), content).status;
}

// The generated project on disk, made once and removed when the benchmarks end.
class ProjectOnDisk {
public:
    static const ProjectOnDisk& Get() {
        static const ProjectOnDisk instance;
        return instance;
    }
    ~ProjectOnDisk() { fs::remove(path); }
    std::string path;
    uint64_t size = 0;

private:
    ProjectOnDisk()
        : path((fs::temp_directory_path() / ("velto-bench-" + std::to_string(getpid()) + ".VT5")).string()) {
        const std::vector<uint8_t> bytes = WriteProject(GenerateProject());
        WriteFile(path, bytes);
        size = bytes.size();
    }
};

long PeakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void BM_ProjectFileLoad(benchmark::State& state) {
    const ProjectOnDisk& file = ProjectOnDisk::Get();
    for (auto _ : state) {
        ProjectContent content;
        if (LoadFromDisk(file.path, content) != ReadStatus::Ok)
            state.SkipWithError("the generated project did not load");
        state.PauseTiming(); // freeing the nodes is not part of the load
        content = ProjectContent{};
        state.ResumeTiming();
    }
    state.SetBytesProcessed(int64_t(state.iterations() * file.size));
    state.counters["file_MB"] = double(file.size) / 1e6;
}
BENCHMARK(BM_ProjectFileLoad)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ProjectFileSave(benchmark::State& state) {
    const ProjectOnDisk& file = ProjectOnDisk::Get();
    ProjectContent content;
    LoadFromDisk(file.path, content);
    const std::string target = file.path + ".saved";
    for (auto _ : state)
        WriteFile(target, WriteProject(content));
    fs::remove(target);
    state.SetBytesProcessed(int64_t(state.iterations() * file.size));
}
BENCHMARK(BM_ProjectFileSave)->Unit(benchmark::kMillisecond)->UseRealTime();

// Starts this binary again with kChildVariable set; the child loads and saves once and prints its
// peak resident size before loading, after loading and during the save, in kilobytes. Both peaks
// count everything from the process start: the load's holds the file's bytes and the built nodes,
// the save's the nodes and the written bytes.
void BM_ProjectFilePeakMemory(benchmark::State& state) {
    const ProjectOnDisk& file = ProjectOnDisk::Get();
    const std::string self = fs::read_symlink("/proc/self/exe").string();
    long before = 0, afterLoad = 0, afterSave = 0;
    for (auto _ : state) {
        setenv(kChildVariable, file.path.c_str(), 1);
        std::FILE* child = popen(("'" + self + "'").c_str(), "r");
        unsetenv(kChildVariable);
        if (!child || std::fscanf(child, "%ld %ld %ld", &before, &afterLoad, &afterSave) != 3)
            state.SkipWithError("the measuring child gave no figures");
        if (child)
            pclose(child);
    }
    const double fileKilobytes = double(file.size) / 1024.0;
    state.counters["load_peak_x_file"] = double(afterLoad - before) / fileKilobytes;
    state.counters["save_peak_x_file"] = double(afterSave - before) / fileKilobytes;
    state.counters["load_peak_MB"] = double(afterLoad) / 1024.0;
    state.counters["save_peak_MB"] = double(afterSave) / 1024.0;
}
BENCHMARK(BM_ProjectFilePeakMemory)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// The child's side: runs before main when the variable is set, and never returns to it.
struct PeakMemoryChild {
    PeakMemoryChild() {
        const char* path = std::getenv(kChildVariable);
        if (!path)
            return;
        const long before = PeakKilobytes();
        ProjectContent content;
        LoadFromDisk(path, content);
        const long afterLoad = PeakKilobytes();
        // Lowers the peak to what is resident now (the loaded project), so that the save's own
        // peak shows even when it stays below the load's.
        std::ofstream("/proc/self/clear_refs") << "5";
        WriteFile(std::string(path) + ".child", WriteProject(content));
        const long afterSave = PeakKilobytes();
        std::remove((std::string(path) + ".child").c_str());
        std::printf("%ld %ld %ld\n", before, afterLoad, afterSave);
        std::fflush(stdout);
        _exit(0);
    }
} const kPeakMemoryChild;

} // namespace
