// Dialogs by number: their items set and asked, and the loop that runs one until an item is hit.
#include "platform/Dialogs.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QScrollArea>
#include <QSlider>
#include <QTimer>

#include <algorithm>
#include <cassert>
#include <memory>

#include "platform/Menus.h"
#include "platform/qt/Dialogo.h"
#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"
#include "platform/qt/Menu.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr std::int16_t spento = 255;    // HiliteDialogItem
constexpr std::size_t maxTesto = 255;   // bytes of an item's text

std::vector<std::unique_ptr<FinestraDialogo>> aperti;   // modal and modeless, in the order of opening

QWidget* proprietario() {
    const DialogPtr davanti = FrontDialog();
    if (davanti != nullptr && davanti->quadro != nullptr) return davanti->quadro;
    return telaio();
}

void mostraColore(QAbstractButton& b, std::int32_t rgb) {
    QPixmap p(b.iconSize());
    p.fill(QColor::fromRgb(static_cast<QRgb>(rgb)));
    QPainter pittore(&p);
    pittore.setPen(Qt::black);
    pittore.drawRect(0, 0, p.width() - 1, p.height() - 1);
    pittore.end();
    b.setIcon(p);
}

void mostraTesto(const VoceDialogo& v, const QString& testoVisto) {
    if (auto* campo = qobject_cast<QLineEdit*>(v.widget)) {
        if (campo->text() != testoVisto) campo->setText(testoVisto);
    } else if (auto* fisso = qobject_cast<QLabel*>(v.widget); fisso != nullptr && v.tipo != TipoVoce::figura) {
        fisso->setText(testoVisto);
    } else if (auto* bottone = qobject_cast<QAbstractButton*>(v.widget);
               bottone != nullptr && v.tipo != TipoVoce::colore) {
        bottone->setText(QString(testoVisto).replace(QLatin1Char('&'), QStringLiteral("&&")));
    } else if (v.tipo == TipoVoce::tabella) {
        mostraTestata(v, testoVisto);
    } else if (v.tipo == TipoVoce::griglia) {
        testataGriglia(v, testoVisto);
    }
}

// A record that the filter did not take belongs to the loops outside: it comes back when the dialog is through.
struct Rimandati {
    std::vector<EventRecord> righe;
    Rimandati() = default;
    ~Rimandati() {
        for (EventRecord& e : righe) accoda(std::move(e));
    }
    Rimandati(const Rimandati&) = delete;
    Rimandati& operator=(const Rimandati&) = delete;
};

// The item that a key means when the filter has no opinion; 0 for none.
std::int16_t voceDelTasto(const FinestraDialogo& d, std::uint8_t tasto) {
    if (tasto != tastoEscape) return d.predefinita;
    const auto v = d.voci.find(d.annulla);
    return v != d.voci.end() && !v->second.accesa ? std::int16_t{0} : d.annulla;   // a dimmed Cancel stays shut
}

bool daTasti(FinestraDialogo& d, ModalFilter filter, std::int16_t& item) {
    while (!d.tasti.empty()) {
        EventRecord e;
        e.what = EventKind::keyDown;
        e.message = d.tasti.front();
        e.when = TickCount();
        d.tasti.pop_front();
        item = 0;
        const bool preso = filter != nullptr && filter(&d, e, item);
        if (!preso) item = voceDelTasto(d, static_cast<std::uint8_t>(e.message));
        if (item != 0) return true;
    }
    return false;
}

bool daCoda(FinestraDialogo& d, ModalFilter filter, Rimandati& rimandati, std::int16_t& item) {
    EventRecord e;
    while (prendi(e, Attesa::dialogo)) {
        item = 0;
        const bool preso = filter != nullptr && filter(&d, e, item);
        if (preso && item != 0) return true;
        if (!preso && e.what != EventKind::nullEvent) rimandati.righe.push_back(std::move(e));
    }
    return false;
}

// A list that scrolls is scrolled so that the item is seen.
void scorriFino(const FinestraDialogo& d) {
    const auto v = d.voci.find(d.inVista);
    if (v == d.voci.end() || v->second.widget == nullptr) return;
    for (QWidget* w = v->second.widget->parentWidget(); w != nullptr; w = w->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(w))
            area->ensureWidgetVisible(v->second.widget, 0, area->height() / 2);
}

void accanto(const FinestraDialogo& d, QWidget& quadro) {
    QList<const FinestraDialogo*> altri;
    for (const auto& a : aperti)
        if (a.get() != &d && a->nonModale && a->quadro != nullptr && a->quadro->isVisible()) altri << a.get();
    mettiAlPosto(d, quadro, altri);
}

}   // namespace

void colpisci(FinestraDialogo& d, std::int16_t item) {
    if (!d.nonModale) {
        d.colpi.push_back(item);
        return sveglia();
    }
    EventRecord e;
    e.what = EventKind::dialogItem;
    e.message = (std::uint32_t{static_cast<std::uint16_t>(d.id)} << 16) | static_cast<std::uint16_t>(item);
    accoda(std::move(e));
}

void applica(const VoceDialogo& v) {
    if (v.widget == nullptr) return;
    v.widget->setEnabled(v.accesa);
    v.widget->setVisible(!v.nascosta);
    mostraTesto(v, daUtf8(conParametri(v.grezzo)));
    auto* bottone = qobject_cast<QAbstractButton*>(v.widget);
    switch (v.tipo) {
    case TipoVoce::spunta:
    case TipoVoce::radio:
        bottone->setCheckable(true);
        bottone->setChecked(v.valore != 0);
        if (v.tipo == TipoVoce::radio) tabNelGruppo(*bottone);
        break;
    case TipoVoce::colore: mostraColore(*bottone, v.valore); break;
    case TipoVoce::scelta: static_cast<QComboBox*>(v.widget)->setCurrentIndex(v.valore - 1); break;
    case TipoVoce::elenco: scegliRiga(v); break;
    case TipoVoce::cursore: static_cast<QSlider*>(v.widget)->setValue(v.valore); break;
    case TipoVoce::bottone:
    case TipoVoce::testoFisso:
    case TipoVoce::figura:
    case TipoVoce::tabella:
    case TipoVoce::campo: break;
    case TipoVoce::griglia: scegliRigaGriglia(v); break;
    }
}

void mostra(FinestraDialogo& d) {
    if (d.mostrata) return;
    d.mostrata = true;
    if (d.quadro != nullptr) {
        d.quadro->setWindowModality(d.nonModale ? Qt::NonModal : Qt::ApplicationModal);
        if (d.nonModale) accanto(d, *d.quadro);
        d.quadro->show();
        // The program fills it now; by what it holds then its place is chosen again, before anyone sees it.
        if (d.nonModale) QTimer::singleShot(0, d.quadro, [&d] { accanto(d, *d.quadro); });
        scorriFino(d);
        d.quadro->activateWindow();
    }
    if (copione() != nullptr) copione()->dialogoAperto(d.id, d.titolo);
}

VoceDialogo* voceDi(DialogPtr d, std::int16_t item) {
    if (d == nullptr) return nullptr;
    const auto v = d->voci.find(item);
    return v == d->voci.end() ? nullptr : &v->second;
}

DialogPtr GetNewDialog(std::int16_t id) {
    auto nuovo = std::make_unique<FinestraDialogo>();
    const DialogPtr d = nuovo.get();
    d->id = id;
    if (conFinestre()) d->quadro = new QuadroDialogo(*d, proprietario());
    [[maybe_unused]] const bool letto = leggiDialogo(*d);
    assert(letto && "a dialog's resource is missing");
    aperti.push_back(std::move(nuovo));
    if (d->nonModale) mostra(*d);
    return d;
}

void DisposeDialog(DialogPtr d) {
    const auto i = std::find_if(aperti.begin(), aperti.end(), [d](const auto& a) { return a.get() == d; });
    if (i == aperti.end()) return;
    const std::unique_ptr<FinestraDialogo> via = std::move(*i);
    aperti.erase(i);
    ricordaPosto(*d);
    delete d->quadro;   // no handler of it is running: handlers only leave records
    if (QWidget* sotto = conFinestre() ? proprietario() : nullptr; sotto != nullptr && sotto->isVisible())
        sotto->activateWindow();
    if (copione() != nullptr && d->mostrata) copione()->dialogoChiuso(d->id);
}

bool DialogAnswered(std::int16_t id) {
    if (!conFinestre()) return false;
    return copione() == nullptr || copione()->dialogoAtteso == nullptr || copione()->dialogoAtteso(id);
}

DialogPtr FrontDialog() {
    const auto i = std::find_if(aperti.rbegin(), aperti.rend(), [](const auto& a) { return !a->nonModale; });
    return i == aperti.rend() ? nullptr : i->get();
}

void SelectDialogWindow(DialogPtr d) {
    if (d == nullptr || d->quadro == nullptr) return;
    d->quadro->raise();
    d->quadro->activateWindow();
}

void ModalDialog(ModalFilter filter, std::int16_t& item) {
    const DialogPtr d = FrontDialog();
    item = d == nullptr ? std::int16_t{2} : d->annulla;
    if (d == nullptr || d->quadro == nullptr) return;   // without windows every dialog is left at once
    mostra(*d);
    const Annidato annidato;
    Rimandati rimandati;
    for (;;) {
        if (!d->colpi.empty()) {
            item = d->colpi.front();
            d->colpi.pop_front();
            return;
        }
        if (daTasti(*d, filter, item) || daCoda(*d, filter, rimandati, item)) return;
        item = d->annulla;
        if (quitPending()) return;
        if (!waitStep(Attesa::dialogo, -1) && d->colpi.empty() && d->tasti.empty()) return;
    }
}

void SetDialogItemText(DialogPtr d, std::int16_t item, std::string_view macRoman) {
    VoceDialogo* v = voceDi(d, item);
    if (v == nullptr) return;
    const std::string utf8 = MacToUtf8(macRoman.substr(0, maxTesto));
    v->grezzo = utf8;
    mostraTesto(*v, daUtf8(utf8));
}

std::string GetDialogItemText(DialogPtr d, std::int16_t item) {
    const VoceDialogo* v = voceDi(d, item);
    if (v == nullptr) return {};
    const auto* campo = qobject_cast<const QLineEdit*>(v->widget);
    std::string mac = campo != nullptr ? aMac(campo->text()) : Utf8ToMac(v->grezzo);
    if (mac.size() > maxTesto) mac.resize(maxTesto);
    return mac;
}

void SelectDialogItemText(DialogPtr d, std::int16_t item, std::int32_t start, std::int32_t end) {
    const VoceDialogo* v = voceDi(d, item);
    auto* campo = v == nullptr ? nullptr : qobject_cast<QLineEdit*>(v->widget);
    if (campo == nullptr) return;
    const auto lungo = static_cast<std::int32_t>(campo->text().size());
    start = std::clamp(start, 0, lungo);
    end = std::clamp(end, start, lungo);
    campo->setFocus(Qt::OtherFocusReason);
    campo->setCursorPosition(start);
    if (end > start) campo->setSelection(start, end - start);
}

void SetDialogItemValue(DialogPtr d, std::int16_t item, std::int32_t value) {
    VoceDialogo* v = voceDi(d, item);
    if (v == nullptr) return;
    v->valore = value;
    if (v->tipo != TipoVoce::campo) applica(*v);
}

std::int32_t GetDialogItemValue(DialogPtr d, std::int16_t item) {
    const VoceDialogo* v = voceDi(d, item);
    return v == nullptr ? 0 : v->valore;
}

void HiliteDialogItem(DialogPtr d, std::int16_t item, std::int16_t part) {
    VoceDialogo* v = voceDi(d, item);
    if (v == nullptr) return;
    v->accesa = part != spento;
    if (v->widget != nullptr) v->widget->setEnabled(v->accesa);
}

void ShowDialogItem(DialogPtr d, std::int16_t item) {
    if (VoceDialogo* v = voceDi(d, item); v != nullptr) {
        v->nascosta = false;
        if (v->widget != nullptr) v->widget->show();
        d->inVista = item;
        if (d->mostrata) scorriFino(*d);
    }
}

void HideDialogItem(DialogPtr d, std::int16_t item) {
    VoceDialogo* v = voceDi(d, item);
    if (v == nullptr) return;
    v->nascosta = true;
    if (v->widget != nullptr) v->widget->hide();
}

void SetDialogItemHint(DialogPtr d, std::int16_t item, std::string_view macRoman) {
    const VoceDialogo* v = voceDi(d, item);
    if (v == nullptr) return;
    if (auto* campo = qobject_cast<QLineEdit*>(v->widget)) campo->setPlaceholderText(daMac(macRoman));
    if (auto* scelta = qobject_cast<QComboBox*>(v->widget)) scelta->setPlaceholderText(daMac(macRoman));
}

void SetDialogItemMenu(DialogPtr d, std::int16_t item, std::int16_t menu) {
    VoceDialogo* v = voceDi(d, item);
    auto* scelta = v == nullptr ? nullptr : qobject_cast<QComboBox*>(v->widget);
    if (scelta == nullptr) return;
    scelta->clear();
    const MenuDati* dati = menuDelleVoci(menu);
    for (std::int16_t i = 1; i <= CountMenuItems(menu); ++i) {
        const auto dato = dati->voci.find(i);
        const bool figurata = dato != dati->voci.end() && dato->second.figura != FiguraVoce::nessuna;
        const QIcon icona = figurata ? figuraVoce(dato->second.figura, dato->second.figuraNumero) : QIcon();
        scelta->addItem(icona, daMac(GetMenuItemText(menu, i)));
    }
    scelta->setCurrentIndex(v->valore - 1);
}

void SetDialogItemPicture(DialogPtr d, std::int16_t item, const PixMap& p) {
    const VoceDialogo* v = voceDi(d, item);
    auto* figura = v == nullptr || v->tipo != TipoVoce::figura ? nullptr : qobject_cast<QLabel*>(v->widget);
    if (figura == nullptr || EmptyRect(p.bounds)) return;
    const QImage vista(reinterpret_cast<const uchar*>(p.base), p.bounds.right - p.bounds.left,
                       p.bounds.bottom - p.bounds.top, p.rowPixels * 4, QImage::Format_RGB32);
    figura->setPixmap(QPixmap::fromImage(vista.copy()));   // the pixels go with the caller
}

// Texts with parameters take those now in force.
void DrawDialog(DialogPtr d) {
    if (d == nullptr || d->quadro == nullptr) return;
    for (const auto& [n, v] : d->voci)
        if (v.tipo != TipoVoce::campo && v.grezzo.find('^') != std::string::npos)
            mostraTesto(v, daUtf8(conParametri(v.grezzo)));
    d->quadro->update();
}

DialogPtr AutoModeless(std::int16_t id) {
    const auto i =
        std::find_if(aperti.begin(), aperti.end(), [id](const auto& a) { return a->nonModale && a->id == id; });
    return i == aperti.end() ? nullptr : i->get();
}

void ParamText(std::string_view p0, std::string_view p1, std::string_view p2, std::string_view p3) {
    parametriTesto = {MacToUtf8(p0), MacToUtf8(p1), MacToUtf8(p2), MacToUtf8(p3)};
}

}   // namespace tessaro
