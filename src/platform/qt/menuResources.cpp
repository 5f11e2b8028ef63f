// A menu as its file in resources/menus tells it, with its texts in the person's language.
#include "platform/qt/Interno.h"
#include "platform/qt/Menu.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

std::int16_t corto(int n) { return static_cast<std::int16_t>(n); }

// Keys with a name have it in the person's language.
std::string cennoDi(const std::string& tasto) {
    const std::string nome = tasto.empty() ? std::string() : testo("key." + tasto);
    return nome.empty() ? tasto : nome;
}

VoceMenu leggiVoce(const RigaRisorsa& r) {
    VoceMenu v;
    v.separatore = r.ha("separator");
    v.costruita = !r.ha("unbuilt");
    v.spuntabile = r.ha("check");
    v.unica = !r.opzione("radio").empty();
    v.tasto = r.opzione("key");
    v.cenno = cennoDi(std::string(r.opzione("hint")));
    const auto figura = r.opzione("icon");
    v.figura = figura == "pattern"     ? FiguraVoce::retino
               : figura == "thickness" ? FiguraVoce::riga
               : figura == "colour"    ? FiguraVoce::colore
                                       : FiguraVoce::nessuna;
    return v;
}

std::string testoNumerato(const std::string& chiave, int numero) {
    std::string s = testo(chiave);
    const auto dove = s.find("^0");
    if (dove != std::string::npos) s.replace(dove, 2, std::to_string(numero));
    return s;
}

// `3 item ...`, `1..9 item ...`, `7 submenu 40`, `6 separator`.
void leggiRigaVoci(MenuDati& m, const RigaRisorsa& r) {
    const std::string& numeri = r.parole[0];
    if (numeri == "-") {
        m.ordine.push_back(0);
        return;
    }
    const auto punti = numeri.find("..");
    const int primo = numeroDi(std::string_view(numeri).substr(0, punti), 0);
    const int ultimo = punti == std::string::npos ? primo : numeroDi(std::string_view(numeri).substr(punti + 2), primo);
    const int primoMostrato = r.numero("first", primo);
    for (int n = primo; n <= ultimo; ++n) {
        VoceMenu v = leggiVoce(r);
        v.costruita = v.costruita && m.costruito;
        const int mostrato = primoMostrato + n - primo;
        v.figuraNumero = corto(mostrato);
        if (v.cenno == "number") v.cenno = std::to_string(mostrato);
        const auto nome = r.opzione("text");
        const std::string propria = "menu." + std::to_string(m.numero) + "." + std::to_string(n);
        if (r.ha("submenu") && r.parole.size() > 2) {
            v.sottomenu = corto(numeroDi(r.parole[2], 0));
            v.testo = testo(propria);
        } else if (!v.separatore) {
            v.testo = nome.empty() ? testo(propria) : testoNumerato("item." + std::string(nome), mostrato);
        }
        m.ordine.push_back(corto(n));
        m.voci.insert_or_assign(corto(n), std::move(v));
    }
}

}   // namespace

MenuDati leggiMenu(const std::string& file) {
    MenuDati m;
    for (const RigaRisorsa& r : RigheRisorsa(file)) {
        if (r.parole[0] != "menu") {
            leggiRigaVoci(m, r);
            continue;
        }
        m.numero = corto(r.parole.size() > 1 ? numeroDi(r.parole[1], 0) : 0);
        m.titolo = testo("menu." + std::to_string(m.numero));
        m.inBarra = r.ha("bar");
        m.ultimo = r.ha("last");
        m.griglia = r.ha("grid");
        m.campioni = r.ha("swatches");
        m.adatto = r.ha("fitting");
        m.costruito = !r.ha("unbuilt");
        m.specchioDi = corto(r.numero("mirror", 0));
        m.modello = leggiVoce(r);
    }
    return m;
}

}   // namespace tessaro
