// The frame, the drawing window in it and its controls, as the files of the Qt implementation see them.
#pragma once

#include <QMainWindow>
#include <QScrollBar>
#include <QWidget>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/Drags.h"
#include "platform/Events.h"
#include "platform/paint/RasterPort.h"
#include "platform/Windows.h"

class QMimeData;
class QPainter;

namespace tessaro {

// The content of the drawing window: shows the port's pixels and turns input into records.
class Foglio : public QWidget {
public:
    Foglio(QWidget* parent, Finestra& finestra);
    void accodaPuntatore(EventKind what, QPointF where, Qt::KeyboardModifiers m, std::uint16_t extra, ulong stamp);
    void lascia();   // the grab is lost: a press under way counts as released

protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void leaveEvent(QEvent* e) override;
    void wheelEvent(QWheelEvent* e) override;
    void tabletEvent(QTabletEvent* e) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dragMoveEvent(QDragMoveEvent* e) override;
    void dragLeaveEvent(QDragLeaveEvent* e) override;
    void dropEvent(QDropEvent* e) override;
    bool event(QEvent* e) override;
    bool eventFilter(QObject* o, QEvent* e) override;
    bool focusNextPrevChild(bool next) override;

private:
    void premi(QMouseEvent* e);
    void pizzica(double fattore, QPointF dove, Qt::KeyboardModifiers m);
    Finestra& finestra;
    Qt::MouseButton premuto = Qt::NoButton;
    enum class Premuti : std::uint8_t { nessuno, penna, comeTopo } premuti = Premuti::nessuno;   // a pen's buttons
    std::vector<std::uint32_t> conVeli;   // pixels on their way to the screen
    QPoint restoRotella;                  // angle of the wheel that makes no whole step yet, eighths of a degree
};

struct Controllo {
    enum Tipo : std::uint8_t { barra, pannello, bottone, separatore } tipo = barra;
    QWidget* widget = nullptr;   // child of the content
    std::int32_t minimo = 0, massimo = 0, valore = 0;
    std::int32_t linea = 1, pagina = 10;
    std::int16_t parte = 0;   // HiliteControl's
    [[nodiscard]] QScrollBar* cursore() const { return tipo == barra ? static_cast<QScrollBar*>(widget) : nullptr; }
};

// An overlay: its raster rests black, and what differs from black inverts the window's pixels.
struct VeloFinestra {
    RasterPort porta;
    Region coperto;    // where it was drawn
    Region cambiato;   // where the screen shows another one
};

struct Finestra {
    std::unique_ptr<RasterPort> porta;
    std::array<VeloFinestra, 2> veli;   // by Velo
    Foglio* foglio = nullptr;           // null without an application object
    Region invalida;                    // what the next update event is about
    bool mostrata = false;
    std::string titolo;      // Mac Roman
    bool cambiata = false;   // the title shows a change
    std::vector<std::unique_ptr<Controllo>> controlli;
    std::map<std::int32_t, QWidget*> parti;   // named parts for accessibility tools
};

// The frame: menu bar, the content or, without a drawing, a quiet hint.
class Telaio : public QMainWindow {
public:
    Telaio();
    void accodaTasto(QKeyEvent* e);

protected:
    void closeEvent(QCloseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;
    bool event(QEvent* e) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dropEvent(QDropEvent* e) override;
    bool focusNextPrevChild(bool avanti) override;
};

void creaTelaio();   // after the application object
void distruggiTelaio();
// The strip of texts at the frame's foot, and its height in logical pixels.
void creaStriscia(QMainWindow& frame);
int altezzaStriscia();
void togliStriscia();   // before the frame goes
QRect schermoUtile();   // where the frame may stand, logical pixels
// Where a window goes that was left at `voluto`, frame included: there, when its title bar can be taken hold of on one of
// the screens and it fits; else onto that screen or the first one, and no larger than it.
QString fileDelTelaio();   // where places and sizes of windows are kept
QRect postoVisibile(const QRect& voluto, const QList<QRect>& schermi);
void adattaTelaio(std::int32_t width, std::int32_t height);   // so that the content gets this size
void aggiornaTitolo();

Finestra* finestraAperta();
// --- the start page
void mostraPagina();    // without a drawing
void disponiPagina();   // to the frame's size
void togliPagina();
// The port takes the content's size and the screen's ratio; false when it had them.
bool adattaPorta(Finestra& f, std::int32_t width, std::int32_t height);
void adattaVeli(Finestra& f);   // the overlays take the port's size, empty
// Device pixels of `area` as they are shown, row by row.
void componi(const Finestra& f, const DeviceRect& area, std::vector<std::uint32_t>& out);
void mostraDisegnato();             // hands what was drawn to the widget, for the next paint
void scordaInvalida();              // FlushEvents: no repaint is asked for
void scordaFinestra(WindowPtr w);   // drops the queued records of a window that goes
bool codaVuota();
void azzeraCursore();                // the widget's cursor as CurrentCursor says
void attivaProgramma(bool attivo);   // the program comes to the front or goes behind
void accodaPercorsi(EventKind what, const char* classe, const QStringList& percorsi, Point where,
                    std::uint16_t modifiers);
QStringList percorsiLocali(const QMimeData* dati);
// --- drags over the drawing
bool traccia(FaseDrag fase, const QMimeData* dati);   // asks the handler; false when a drop would not be taken
void accodaLasciate(const QMimeData* dati, Point where, std::uint16_t modifiers);
void disegnaEvidenza(QPainter& p, const QWidget& foglio);   // the highlight, when one is shown

// --- the clock
void avanzaOrologio(std::uint32_t ticks);
std::uint32_t tickDi(ulong stamp);   // ticks of a toolkit event's stamp in milliseconds; 0 stands for now

}   // namespace tessaro
