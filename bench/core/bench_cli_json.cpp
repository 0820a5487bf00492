// velto-cli dump and build on the generated project of 100,000 nodes with notes. Each run starts
// the program itself as a child process, so that its wall time and peak memory are what a user of
// the command sees. The JSON is dumped once; every build must give back the project's bytes.
#include "GeneratedProjects.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace velto {

namespace {

namespace fs = std::filesystem;

struct ChildRun {
    bool succeeded = false;
    double seconds = 0;
    long peakKilobytes = 0;
};

// velto-cli with the arguments, its standard output going to outputPath. The peak memory is the
// child's own as long as it passes this small process's size, which it shares until it starts.
ChildRun RunCli(const std::vector<std::string>& arguments, const std::string& outputPath) {
    std::vector<char*> argv{const_cast<char*>(VELTO_CLI_PATH)};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, outputPath.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    const bool started = posix_spawn(&pid, VELTO_CLI_PATH, &actions, nullptr, argv.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage usage{};
    ChildRun run;
    run.succeeded =
        started && wait4(pid, &status, 0, &usage) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    run.peakKilobytes = usage.ru_maxrss;
    return run;
}

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// The project file and its JSON on disk, made when first needed and removed at the end.
class ProjectAndJson {
public:
    static const ProjectAndJson& Get() {
        static const ProjectAndJson files;
        return files;
    }
    ~ProjectAndJson() {
        for (const std::string* path : {&project, &json, &built})
            fs::remove(*path);
    }

    const std::string base =
        (fs::temp_directory_path() / ("velto-cli-bench-" + std::to_string(getpid()))).string();
    const std::string project = base + ".VT5";
    const std::string json = base + ".json";
    const std::string built = base + "-built.VT5";
    bool ready = false;

private:
    // The project is made in a child process: the memory it takes would otherwise stay with this
    // process and be counted in the peak of every command it starts.
    ProjectAndJson() {
        const pid_t maker = fork();
        if (maker == 0) {
            const std::vector<uint8_t> bytes =
                WriteProject(benchdata::GenerateProject(benchdata::Shape::Notes));
            std::ofstream(project, std::ios::binary)
                .write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
            _exit(0);
        }
        int status = 0;
        ready = maker > 0 && waitpid(maker, &status, 0) == maker && RunCli({"dump", project}, json).succeeded;
        sync(); // the files written here would otherwise still go to disk while the commands run
    }
};

void Report(benchmark::State& state, const ChildRun& run, const std::string& input) {
    state.counters["peak_MB"] = double(run.peakKilobytes) * 1024 / 1e6;
    state.counters["input_MB"] = double(fs::file_size(input)) / 1e6;
    state.counters["peak_x_input"] = double(run.peakKilobytes) * 1024 / double(fs::file_size(input));
}

void BM_CliDump(benchmark::State& state) {
    const ProjectAndJson& files = ProjectAndJson::Get();
    ChildRun run;
    for (auto _ : state) {
        run = RunCli({"dump", files.project}, "/dev/null");
        if (!files.ready || !run.succeeded)
            state.SkipWithError("velto-cli dump failed");
        state.SetIterationTime(run.seconds);
    }
    Report(state, run, files.project);
}

void BM_CliBuild(benchmark::State& state) {
    const ProjectAndJson& files = ProjectAndJson::Get();
    ChildRun run;
    for (auto _ : state) {
        fs::remove(files.built); // a new file: replacing one costs the system the freeing of the old
        run = RunCli({"build", files.json, files.built}, "/dev/null");
        if (!files.ready || !run.succeeded)
            state.SkipWithError("velto-cli build failed");
        state.SetIterationTime(run.seconds);
    }
    if (ReadAll(files.built) != ReadAll(files.project))
        state.SkipWithError("build did not give back the project's bytes");
    Report(state, run, files.json);
}

BENCHMARK(BM_CliDump)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
BENCHMARK(BM_CliBuild)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

} // namespace

} // namespace velto
