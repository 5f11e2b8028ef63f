// The start of the program to its first painted window, against a bare window of the toolkit in the same run. Needs a display:
//
//     xvfb-run -a build/bench/bench/bench_avvio [PROGRAM]
//
// Both are started in turn, each as often, after one start that warms the caches. What is told is the medians and what is over
// the bare window; below 250 ms the program is good.
#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr int volte = 20;
constexpr double limite = 250;   // milliseconds

long long adesso() {
    using namespace std::chrono;
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

// The bare window, and when its first painting was shown.
class Nuda : public QMainWindow {
    long long partenza;

public:
    explicit Nuda(long long nanosecondi) : partenza(nanosecondi) {}

protected:
    bool event(QEvent* e) override {
        const bool r = QMainWindow::event(e);
        if (e->type() == QEvent::Paint)
            QTimer::singleShot(0, this, [this] {
                std::printf("%.3f\n", static_cast<double>(adesso() - partenza) / 1e6);
                std::fflush(nullptr);
                std::_Exit(0);
            });
        return r;
    }
};

int nuda(int argc, char** argv) {
    QApplication applicazione(argc, argv);
    Nuda finestra(std::atoll(std::getenv("TESSARO_STARTED")));
    finestra.resize(1000, 700);
    finestra.show();
    return QApplication::exec();
}

// Milliseconds of one start; the shell's own time is not in it.
double avvio(const std::string& comando) {
    const std::string tutto = "TESSARO_STARTED=" + std::to_string(adesso()) + " exec " + comando + " 2>/dev/null";
    double v = -1;
    std::FILE* f = popen(tutto.c_str(), "r");
    if (f == nullptr || std::fscanf(f, "%lf", &v) != 1) v = -1;
    if (f != nullptr) pclose(f);
    return v;
}

double mediana(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

}   // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::string(argv[1]) == "--bare") return nuda(argc, argv);
    const std::filesystem::path qui = std::filesystem::canonical("/proc/self/exe");
    const std::string programma = argc > 1 ? argv[1] : (qui.parent_path().parent_path() / "tessaro3d").string();
    const std::filesystem::path scelte = std::filesystem::temp_directory_path() / "bench-avvio";
    const std::string nostro = "'" + programma + "' --settings '" + scelte.string() + "'",
                      base = "'" + qui.string() + "' --bare";
    std::vector<double> a, b;
    for (int i = 0; i <= volte; ++i) {
        const double x = avvio(nostro), y = avvio(base);
        if (x < 0 || y < 0) {
            std::fprintf(stderr, "%s told no time: is there a display?\n",
                         x < 0 ? programma.c_str() : "the bare window");
            return 1;
        }
        if (i == 0) continue;
        a.push_back(x);
        b.push_back(y);
    }
    std::filesystem::remove_all(scelte);
    std::printf(
        "first painted window  %6.0f ms (%.0f to %.0f)   bare window %6.0f ms   over it %6.0f ms   ratio %5.2f   limit "
        "%.0f ms\n",
        mediana(a), *std::min_element(a.begin(), a.end()), *std::max_element(a.begin(), a.end()), mediana(b),
        mediana(a) - mediana(b), mediana(a) / mediana(b), limite);
    return 0;
}
