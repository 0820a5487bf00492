// Loading and saving a large project file: 100,000 nodes with notes, hours and cost entries, about
// 100 MB, read from and written to a file on disk. Two ways each: streamed (the file passes through
// a small buffer) and whole (the file's bytes held in one buffer, as a caller of the span reader
// does). Peak memory and the first load of a fresh process are measured in child processes (this
// binary started again), so that nothing the benchmark itself holds is counted. Three more files of
// about 55 MB take the memory per byte of the file to its worst: one of hours entries, one of cost
// entries (all texts empty), and one of nodes with empty texts and no entries.
#include "GeneratedProjects.h"
#include "document/ProjectFile.h"
#include "model/NodeList.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velto {

namespace {

namespace fs = std::filesystem;
using benchdata::GenerateProject;
using benchdata::Shape;

constexpr const char* kChildVariable = "VELTO_BENCH_CHILD"; // "<operation> <file>"

// Registers name/<shape> for every shape; iterations 0 leaves the count to the library.
int RegisterPerShape(const char* name, void (*function)(benchmark::State&, Shape), int iterations) {
    const std::pair<Shape, const char*> shapes[] = {{Shape::Notes, "notes"},
                                                    {Shape::Hours, "hours"},
                                                    {Shape::Costs, "costs"},
                                                    {Shape::MinimalNodes, "minimal_nodes"}};
    for (const auto& [shape, label] : shapes) {
        auto* registered =
            benchmark::RegisterBenchmark((std::string(name) + "/" + label).c_str(), function, shape)
                ->Unit(benchmark::kMillisecond)
                ->UseRealTime();
        if (iterations)
            registered->Iterations(iterations);
    }
    return 0;
}

int64_t ReadSome(int fd, uint8_t* buffer, size_t size) {
    const ssize_t count = read(fd, buffer, size);
    return count < 0 ? -errno : count;
}

bool WriteAll(int fd, std::span<const uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(fd, bytes.data(), bytes.size());
        if (count <= 0)
            return false;
        bytes = bytes.subspan(size_t(count));
    }
    return true;
}

uint64_t FileSize(int fd) {
    struct stat status {};
    fstat(fd, &status);
    return uint64_t(status.st_size);
}

ReadStatus LoadStreamed(const std::string& path, ProjectContent& content) {
    const int fd = open(path.c_str(), O_RDONLY);
    const ReadResult result = ReadProject(
        FileSize(fd), [fd](uint8_t* buffer, size_t size) { return ReadSome(fd, buffer, size); }, content);
    close(fd);
    return result.status;
}

// Read whole, then parsed. The buffer is left uninitialised: zero-filling it first would only add
// another pass over the file's size.
ReadStatus LoadWhole(const std::string& path, ProjectContent& content) {
    const int fd = open(path.c_str(), O_RDONLY);
    const size_t size = size_t(FileSize(fd));
    const std::unique_ptr<uint8_t[]> bytes(new uint8_t[size]);
    size_t done = 0;
    for (int64_t got = 1; done < size && got > 0; done += size_t(std::max<int64_t>(got, 0)))
        got = ReadSome(fd, bytes.get() + done, size - done);
    close(fd);
    return ReadProject(std::span<const uint8_t>(bytes.get(), done), content).status;
}

// Both saves write a temporary file beside the target and rename it into place.
template <class WriteBody> bool SaveVia(const std::string& path, WriteBody writeBody) {
    const std::string temporary = path + ".tmp";
    const int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const bool written = writeBody(fd);
    return close(fd) == 0 && written && std::rename(temporary.c_str(), path.c_str()) == 0;
}

bool SaveStreamed(const std::string& path, const ProjectContent& content) {
    return SaveVia(path, [&](int fd) {
        return WriteProject(content.view, content.assigneeHistory, content.remarkHistory, content.firstNode,
                            [fd](std::span<const uint8_t> piece) { return WriteAll(fd, piece); });
    });
}

bool SaveWhole(const std::string& path, const ProjectContent& content) {
    return SaveVia(path, [&](int fd) { return WriteAll(fd, WriteProject(content)); });
}

// The generated projects on disk, each made when first needed and removed when the benchmarks end.
class ProjectOnDisk {
public:
    static const ProjectOnDisk& Get(Shape shape = Shape::Notes) {
        static const ProjectOnDisk notes(Shape::Notes);
        static const ProjectOnDisk hours(Shape::Hours);
        static const ProjectOnDisk costs(Shape::Costs);
        static const ProjectOnDisk minimal(Shape::MinimalNodes);
        switch (shape) {
        case Shape::Notes:
            return notes;
        case Shape::Hours:
            return hours;
        case Shape::Costs:
            return costs;
        case Shape::MinimalNodes:
            break;
        }
        return minimal;
    }
    ~ProjectOnDisk() { fs::remove(path); }
    std::string path;
    uint64_t size = 0;

private:
    explicit ProjectOnDisk(Shape shape)
        : path((fs::temp_directory_path() /
                ("velto-bench-" + std::to_string(getpid()) + "-" + std::to_string(int(shape)) + ".VT5"))
                   .string()) {
        const ProjectContent content = GenerateProject(shape);
        SaveStreamed(path, content);
        size = fs::file_size(path);
    }
};

template <class Load> void RunLoad(benchmark::State& state, Load load, Shape shape = Shape::Notes) {
    const ProjectOnDisk& file = ProjectOnDisk::Get(shape);
    for (auto _ : state) {
        ProjectContent content;
        if (load(file.path, content) != ReadStatus::Ok)
            state.SkipWithError("the generated project did not load");
        state.PauseTiming(); // freeing the nodes is not part of the load
        content = ProjectContent{};
        state.ResumeTiming();
    }
    state.SetBytesProcessed(int64_t(state.iterations() * file.size));
    state.counters["file_MB"] = double(file.size) / 1e6;
}

template <class Save> void RunSave(benchmark::State& state, Save save) {
    const ProjectOnDisk& file = ProjectOnDisk::Get();
    ProjectContent content;
    LoadStreamed(file.path, content);
    const std::string target = file.path + ".saved";
    for (auto _ : state)
        if (!save(target, content))
            state.SkipWithError("the save failed");
    fs::remove(target);
    state.SetBytesProcessed(int64_t(state.iterations() * file.size));
}

void BM_ProjectFileLoadStreamed(benchmark::State& state, Shape shape) {
    RunLoad(state, LoadStreamed, shape);
}
void BM_ProjectFileLoadWhole(benchmark::State& state) {
    RunLoad(state, LoadWhole);
}
void BM_ProjectFileSaveStreamed(benchmark::State& state) {
    RunSave(state, SaveStreamed);
}
void BM_ProjectFileSaveWhole(benchmark::State& state) {
    RunSave(state, SaveWhole);
}
const int kLoadPerShape = RegisterPerShape("BM_ProjectFileLoadStreamed", BM_ProjectFileLoadStreamed, 0);
BENCHMARK(BM_ProjectFileLoadWhole)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ProjectFileSaveStreamed)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ProjectFileSaveWhole)->Unit(benchmark::kMillisecond)->UseRealTime();

// ---- In a fresh process ----

long PeakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

double MillisecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// User and system time of this process so far.
double CpuMilliseconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval& t) { return double(t.tv_sec) * 1e3 + double(t.tv_usec) / 1e3; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

// Starts this binary again to run one operation (load-streamed, load-whole, save-streamed,
// save-whole, copy) in a fresh process. The child reports its peak resident size above its size at
// the start, and how long the operation took (wall clock and processor time): the first load of a
// process also pays for every page of memory it touches for the first time.
void RunInChild(benchmark::State& state, const char* operation, Shape shape = Shape::Notes) {
    const ProjectOnDisk& file = ProjectOnDisk::Get(shape);
    const std::string self = fs::read_symlink("/proc/self/exe").string();
    long peakKilobytes = 0;
    double milliseconds = 0, cpuMilliseconds = 0;
    for (auto _ : state) {
        setenv(kChildVariable, (std::string(operation) + " " + file.path).c_str(), 1);
        std::FILE* child = popen(("'" + self + "'").c_str(), "r");
        unsetenv(kChildVariable);
        if (!child || std::fscanf(child, "%ld %lf %lf", &peakKilobytes, &milliseconds, &cpuMilliseconds) != 3)
            state.SkipWithError("the measuring child gave no figures");
        if (child)
            pclose(child);
    }
    state.counters["peak_x_file"] = double(peakKilobytes) * 1024.0 / double(file.size);
    state.counters["peak_MB"] = double(peakKilobytes) * 1024.0 / 1e6;
    state.counters["fresh_process_ms"] = milliseconds;
    state.counters["fresh_process_cpu_ms"] = cpuMilliseconds;
}

void BM_ProjectFileFreshLoadStreamed(benchmark::State& state, Shape shape) {
    RunInChild(state, "load-streamed", shape);
}
// The undo copy of a loaded project: its memory above the loaded project, per byte of the file.
void BM_ProjectFileFreshUndoCopy(benchmark::State& state, Shape shape) {
    RunInChild(state, "copy", shape);
}
void BM_ProjectFileFreshLoadWhole(benchmark::State& state) {
    RunInChild(state, "load-whole");
}
void BM_ProjectFileFreshSaveStreamed(benchmark::State& state) {
    RunInChild(state, "save-streamed");
}
void BM_ProjectFileFreshSaveWhole(benchmark::State& state) {
    RunInChild(state, "save-whole");
}
const int kFreshPerShape =
    (RegisterPerShape("BM_ProjectFileFreshLoadStreamed", BM_ProjectFileFreshLoadStreamed, 1),
     RegisterPerShape("BM_ProjectFileFreshUndoCopy", BM_ProjectFileFreshUndoCopy, 1), 0);
BENCHMARK(BM_ProjectFileFreshLoadWhole)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(BM_ProjectFileFreshSaveStreamed)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK(BM_ProjectFileFreshSaveWhole)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// The child's side: runs before main when the variable is set, and never returns to it.
struct FreshProcessChild {
    FreshProcessChild() {
        const char* request = std::getenv(kChildVariable);
        if (!request)
            return;
        const std::string operation(request, std::strchr(request, ' '));
        const std::string path = std::strchr(request, ' ') + 1;
        const long atStart = PeakKilobytes();
        ProjectContent content;
        auto start = std::chrono::steady_clock::now();
        double cpuAtStart = CpuMilliseconds();
        // A save counts from the start (the loaded project included), a copy from the loaded project.
        long countFrom = atStart;
        if (operation.starts_with("save") || operation == "copy") {
            LoadStreamed(path, content);
            // Lowers the peak to what is resident now (the loaded project), so that the save's own
            // peak shows even when it stays below the load's.
            std::ofstream("/proc/self/clear_refs") << "5";
            if (operation == "copy")
                countFrom = PeakKilobytes();
            start = std::chrono::steady_clock::now();
            cpuAtStart = CpuMilliseconds();
        }
        if (operation == "copy") {
            FreeNodeList(DeepCopyList(content.firstNode));
        } else if (operation.starts_with("save")) {
            const std::string target = path + ".child";
            (operation == "save-streamed" ? SaveStreamed : SaveWhole)(target, content);
            std::remove(target.c_str());
        } else {
            (operation == "load-streamed" ? LoadStreamed : LoadWhole)(path, content);
        }
        const double milliseconds = MillisecondsSince(start);
        std::printf("%ld %.1f %.1f\n", PeakKilobytes() - countFrom, milliseconds,
                    CpuMilliseconds() - cpuAtStart);
        std::fflush(stdout);
        _exit(0);
    }
} const kFreshProcessChild;

} // namespace

} // namespace velto
