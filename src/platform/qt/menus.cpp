// Menus by number and item. What they hold is data, read from resources and changed by the program; the widgets follow.
#include "platform/Menus.h"

#include <QAction>
#include <QActionGroup>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "platform/qt/Interno.h"
#include "platform/qt/Menu.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

std::int16_t popupAperto = 0;
std::int16_t sceltaPopup = 0;

namespace {

std::map<std::int16_t, MenuDati> tutti;

std::int16_t corto(int n) { return static_cast<std::int16_t>(n); }

VoceMenu* voceDi(std::int16_t menu, std::int16_t item) {
    MenuDati* m = menuDelleVoci(menu);
    if (m == nullptr) return nullptr;
    const auto v = m->voci.find(item);
    return v == m->voci.end() ? nullptr : &v->second;
}

// `acceso`: is the menu that shows the item on; a mirror's own state counts, not that of the menu it shows.
void aggiornaAzione(const VoceMenu& v, bool acceso) {
    if (v.azione == nullptr) return;
    QString scritto = daUtf8(v.testo).replace(QLatin1Char('&'), QStringLiteral("&&"));
    if (!v.cenno.empty()) {   // behind the keys that the toolkit acts on
        const QString primo = v.azione->shortcut().toString(QKeySequence::NativeText);
        scritto += QLatin1Char('\t') + (primo.isEmpty() ? QString() : primo + QStringLiteral("  ")) + daUtf8(v.cenno);
    }
    v.azione->setText(scritto);
    v.azione->setEnabled(v.accesa && v.costruita && acceso);
    v.azione->setCheckable(v.spuntabile || v.unica || v.spuntata);
    v.azione->setChecked(v.spuntata);
    v.azione->setVisible(!v.nascosta);
}

void aggiornaTutte(const MenuDati& m) {
    for (const auto& [n, v] : m.voci) aggiornaAzione(v, m.acceso);
}

// The mark is the program's to change: what the toolkit flipped by itself goes back.
void scelta(std::int16_t menu, std::int16_t item) {
    if (const MenuDati* m = menuDelleVoci(menu); m != nullptr)
        if (const VoceMenu* v = voceDi(menu, item); v != nullptr) aggiornaAzione(*v, m->acceso);
    if (popupAperto != 0) {
        if (popupAperto == menu) sceltaPopup = item;
        return;
    }
    accodaMenu(menu, item, modificatori(QGuiApplication::keyboardModifiers()));
}

}   // namespace

void sceltaVoce(std::int16_t menu, std::int16_t item) { scelta(menu, item); }

namespace {

// "Ctrl+Shift+Z,Ctrl+Y" are two keys; the comma of "Ctrl+," is one.
QStringList tastiDi(const VoceMenu& v) {
    QStringList tasti;
    for (const QString& t : daUtf8(v.tasto).split(QLatin1Char(','))) {
        if (!tasti.isEmpty() && tasti.constLast().endsWith(QLatin1Char('+')))
            tasti.last() += QLatin1Char(',') + t;
        else if (!t.isEmpty())
            tasti << t;
    }
    return tasti;
}

QMenu* creaMenu(MenuDati& m) {
    if (m.menu != nullptr) return m.menu;
    auto* q = new QMenu(daUtf8(m.titolo), telaio());
    m.menu = q;
    QObject::connect(q, &QMenu::aboutToShow, q, [numero = m.numero] {
        if (MenuDati* questo = menuDi(numero); questo != nullptr) preparaMenu(*questo);
    });
    return q;
}

QAction* creaAzione(QMenu* q, std::int16_t menu, std::int16_t item, const VoceMenu& v) {
    if (v.separatore) return q->addSeparator();
    if (v.sottomenu != 0) {
        MenuDati* sotto = menuDi(v.sottomenu);
        return sotto == nullptr ? q->addAction(QString()) : q->addMenu(creaMenu(*sotto));
    }
    auto* a = q->addAction(QString());
    a->setMenuRole(QAction::NoRole);
    QList<QKeySequence> tasti;
    for (const QString& t : tastiDi(v)) tasti << QKeySequence(t);
    a->setShortcuts(tasti);   // the first one is shown
    if (v.unica)
        (new QActionGroup(a))->addAction(a);   // a group of one: drawn as a radio mark, never held by the toolkit
    QObject::connect(a, &QAction::triggered, a, [menu, item] { scelta(menu, item); });
    return a;
}

void riempi(MenuDati& m) {
    QMenu* q = creaMenu(m);
    if (m.griglia) return riempiGrafico(m, m);
    q->clear();
    for (const std::int16_t n : m.ordine) {
        if (n == 0) {
            q->addSeparator();
            continue;
        }
        VoceMenu& v = m.voci.at(n);
        v.azione = creaAzione(q, m.numero, n, v);
        aggiornaAzione(v, m.acceso);
    }
}

}   // namespace

MenuDati* menuDi(std::int16_t numero) {
    const auto i = tutti.find(numero);
    return i == tutti.end() ? nullptr : &i->second;
}

MenuDati* menuDelleVoci(std::int16_t numero) {
    MenuDati* m = menuDi(numero);
    return m != nullptr && m->specchioDi != 0 ? menuDi(m->specchioDi) : m;
}

std::string senzaMnemonico(std::string_view titolo) {
    std::string s(titolo);
    std::erase(s, '&');
    return s;
}

void CreateMenus() {
    tutti.clear();
    for (const std::string& file : FileRisorse("menus")) {
        MenuDati m = leggiMenu(file);
        tutti.insert_or_assign(m.numero, std::move(m));
    }
    QMenuBar* sbarra = conFinestre() ? barra() : nullptr;
    if (sbarra == nullptr) return;
    sbarra->clear();
    for (auto& [numero, m] : tutti)
        if (m.specchioDi == 0) riempi(m);
    for (const bool ultimi : {false, true})
        for (auto& [numero, m] : tutti)
            if (m.inBarra && m.ultimo == ultimi) sbarra->addMenu(m.menu);
}

void DrawMenuBar() {
    if (conFinestre() && barra() != nullptr) barra()->update();
}

void CheckMenuItem(std::int16_t menu, std::int16_t item, bool on) {
    VoceMenu* v = voceDi(menu, item);
    if (v == nullptr || v->spuntata == on) return;
    v->spuntata = on;
    aggiornaAzione(*v, menuDelleVoci(menu)->acceso);
}

bool IsMenuItemChecked(std::int16_t menu, std::int16_t item) {
    const VoceMenu* v = voceDi(menu, item);
    return v != nullptr && v->spuntata;
}

namespace {
void accendi(std::int16_t menu, std::int16_t item, bool accesa) {
    MenuDati* m = menuDi(menu);
    if (m == nullptr) return;
    if (item == 0) {
        m->acceso = accesa;
        if (m->menu != nullptr) m->menu->menuAction()->setEnabled(accesa);
        aggiornaTutte(*m);
        return;
    }
    VoceMenu* v = voceDi(menu, item);
    if (v == nullptr) return;
    v->accesa = accesa;
    aggiornaAzione(*v, menuDelleVoci(menu)->acceso);
}
}   // namespace

void EnableMenuItem(std::int16_t menu, std::int16_t item) { accendi(menu, item, true); }
void DisableMenuItem(std::int16_t menu, std::int16_t item) { accendi(menu, item, false); }

void ShowMenuItem(std::int16_t menu, std::int16_t item, bool shown) {
    VoceMenu* v = voceDi(menu, item);
    if (v == nullptr) return;
    v->nascosta = !shown;
    aggiornaAzione(*v, menuDelleVoci(menu)->acceso);
}

bool MenuItemBuilt(std::int16_t menu, std::int16_t item) {
    const VoceMenu* v = voceDi(menu, item);
    return v != nullptr && !v->separatore && v->costruita;
}

bool IsMenuItemEnabled(std::int16_t menu, std::int16_t item) {
    const MenuDati* m = menuDi(menu);
    if (m == nullptr || !m->acceso) return false;
    if (item == 0) return true;
    const VoceMenu* v = voceDi(menu, item);
    return v != nullptr && v->accesa && v->costruita && !v->separatore && !v->nascosta;
}

void SetMenuItemText(std::int16_t menu, std::int16_t item, std::string_view macRoman) {
    VoceMenu* v = voceDi(menu, item);
    if (v == nullptr) return;
    v->testo = MacToUtf8(macRoman);
    aggiornaAzione(*v, menuDelleVoci(menu)->acceso);
}

std::string GetMenuItemText(std::int16_t menu, std::int16_t item) {
    const VoceMenu* v = voceDi(menu, item);
    return v == nullptr ? std::string() : Utf8ToMac(v->testo);
}

std::string MenuItemKeys(std::int16_t menu, std::int16_t item) {
    const VoceMenu* v = voceDi(menu, item);
    if (v == nullptr) return {};
    const QString tasto = QKeySequence(tastiDi(*v).value(0)).toString(QKeySequence::NativeText);
    return aMac(v->cenno.empty()  ? tasto
                : tasto.isEmpty() ? daUtf8(v->cenno)
                                  : tasto + QStringLiteral(", ") + daUtf8(v->cenno));
}

std::string GetMenuTitle(std::int16_t menu) {
    const MenuDati* m = menuDi(menu);
    return m == nullptr ? std::string() : Utf8ToMac(senzaMnemonico(m->titolo));
}

void AppendMenu(std::int16_t menu, std::string_view macRoman) {
    MenuDati* m = menuDelleVoci(menu);
    if (m == nullptr) return;
    const std::int16_t n = corto(CountMenuItems(m->numero) + 1);
    VoceMenu v = m->modello;
    v.testo = MacToUtf8(macRoman);
    v.figuraNumero = n;
    m->ordine.push_back(n);
    VoceMenu& nuova = m->voci.insert_or_assign(n, std::move(v)).first->second;
    if (m->menu == nullptr) return;
    nuova.azione = creaAzione(m->menu, m->numero, n, nuova);
    aggiornaAzione(nuova, m->acceso);
}

// The items behind move up by one, as their numbers are their places.
void DeleteMenuItem(std::int16_t menu, std::int16_t item) {
    MenuDati* m = menuDelleVoci(menu);
    if (m == nullptr || !m->voci.contains(item)) return;
    std::map<std::int16_t, VoceMenu> restano;
    for (auto& [n, v] : m->voci)
        if (n != item) restano.insert_or_assign(n > item ? corto(n - 1) : n, std::move(v));
    std::erase(m->ordine, item);
    for (std::int16_t& n : m->ordine)
        if (n > item) --n;
    // Menus that change so are lists; what their items show follows the number.
    for (auto& [n, v] : restano)
        if (v.figura == FiguraVoce::colore) v.figuraNumero = n;
    m->voci = std::move(restano);
    if (m->menu != nullptr) riempi(*m);
}

std::int16_t CountMenuItems(std::int16_t menu) {
    const MenuDati* m = menuDelleVoci(menu);
    if (m == nullptr) return -1;
    return m->voci.empty() ? std::int16_t{0} : m->voci.rbegin()->first;
}

// A mirror is made anew each time it shows; the others get their figures, and the mark at what is in force.
void preparaMenu(MenuDati& m) {
    MenuDati* voci = menuDelleVoci(m.numero);
    if (voci == nullptr) return;
    QMenu* q = creaMenu(m);
    if (m.griglia || m.campioni) return riempiGrafico(m, *voci);
    const bool specchio = m.specchioDi != 0;
    if (specchio) q->clear();
    if (!specchio && q->isEmpty()) riempi(m);
    for (const std::int16_t n : voci->ordine) {
        if (n == 0) continue;
        VoceMenu v = voci->voci.at(n);
        if (specchio) v.azione = creaAzione(q, m.numero, n, v);
        aggiornaAzione(v, m.acceso);
        if (v.azione == nullptr || v.figura == FiguraVoce::nessuna) continue;
        v.azione->setIcon(figuraVoce(v.figura, v.figuraNumero));
        if (v.figura == FiguraVoce::retino) {
            v.azione->setCheckable(true);
            v.azione->setChecked(n == retinoCorrente(m.numero));
        }
    }
    daiMnemonici(*q);
}

bool AutoMenu(std::int16_t menu, std::int16_t item, std::uint16_t modifiers) {
    if (item == 0 || !IsMenuItemEnabled(menu, item)) return false;
    accodaMenu(menu, item, modifiers);
    return true;
}

namespace {
std::string fraVirgolette(std::string_view utf8) {
    std::string s = "\"";
    for (const char c : utf8) {
        if (c == '"' || c == '\\') s += '\\';
        s += c;
    }
    return s + '"';
}
}   // namespace

std::string AutoMenuJson(std::int16_t menu) {
    const MenuDati* m = menuDelleVoci(menu);
    if (m == nullptr) return "{}";
    std::string s = "{";
    for (const auto& [n, v] : m->voci) {
        if (v.separatore || v.nascosta) continue;
        if (s.size() > 1) s += ',';
        s += '"' + std::to_string(n) + "\":{\"text\":" + fraVirgolette(v.testo) + ",\"checked\":"
             + (v.spuntata ? '1' : '0') + ",\"enabled\":" + (IsMenuItemEnabled(menu, n) ? '1' : '0') + '}';
    }
    return s + '}';
}

}   // namespace tessaro
