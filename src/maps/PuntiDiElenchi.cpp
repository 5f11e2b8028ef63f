// Lists of points that are in another reference system than the drawing: how the reader of lists has them carried over.
#include "maps/PuntiDiElenchi.h"

#include <cmath>

#include "exchange/XYZ.h"
#include "maps/Frasi.h"
#include "maps/SistemaRiferimento.h"
#include "platform/Resources.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

// The way of the list in hand.
struct Via {
    std::string da, a, motivo;
    FraSistemi via;
    double accuratezza = -1;   // the worst of the list, metres
};
Via& via() {
    static Via v;
    return v;
}

std::string comincia() {
    Via& v = via();
    const SistemiDisegno& s = SistemiDelDisegno();
    v.da = s.elenchi;
    v.a = s.disegno;
    v.accuratezza = -1;
    if (s.elenchi.empty() || s.disegno.empty() || StessoSistema(s.elenchi, s.disegno)) {
        v.da.clear();
        return {};
    }
    std::string motivo;
    return v.via.prepara(v.da, v.a, motivo) ? std::string() : Frase(FraseMappe::sistemaNonTrasf, motivo);
}

bool porta(double& X, double& Y) { return via().da.empty() || via().via.avanti(X, Y); }

std::string nota() {
    const Via& v = via();
    if (v.da.empty()) return {};
    const double m = v.via.accuratezza();
    PStr255 cifre;
    RToStr(m, 2, cifre);
    const std::string quanto =
        m < 0 ? Frase(FraseMappe::accuratezzaIgnota) : Frase(FraseMappe::accuratezza, cifre.view());
    return Frase(FraseMappe::trasformati, Utf8ToMac(v.da.substr(0, 60)), Utf8ToMac(v.a.substr(0, 60)), quanto);
}

}   // namespace

void PuntiPerSistema() { viaDeiPunti = {comincia, porta, nota}; }

}   // namespace tessaro
