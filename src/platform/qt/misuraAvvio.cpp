// How long a start takes, as whoever started the program sees it: until the frame's first painting is on the screen.
#include <QEvent>
#include <QMainWindow>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

class PrimaPittura : public QObject {
    qint64 partenza;
    bool vista = false;

public:
    explicit PrimaPittura(qint64 nanosecondi) : QObject(telaio()), partenza(nanosecondi) {}
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Paint && !vista) {
            vista = true;
            QTimer::singleShot(0, this, [this] { fine(); });   // what was painted is shown when the event is over
        }
        return false;
    }

private:
    void fine() const {
        using namespace std::chrono;
        const qint64 ora = duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
        std::printf("%.3f\n", static_cast<double>(ora - partenza) / 1e6);
        std::fflush(nullptr);
        std::_Exit(0);
    }
};

}   // namespace

void misuraAvvio() {
    bool detto = false;
    const qint64 partenza = qEnvironmentVariable("TESSARO_STARTED").toLongLong(&detto);
    if (detto) telaio()->installEventFilter(new PrimaPittura(partenza));
}

}   // namespace tessaro
