// The digest of the drawing and what it was when the file was last in step.
#include "shell/Modificato.h"

#include <cstring>
#include <span>

#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Estensioni.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/Registrazione.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Titolo.h"
#include "registration/attaccoDinamico.h"

namespace tessaro {

namespace {

constinit std::uint64_t salvata = 0;
constinit bool sempreDiverso = false;

// Eight bytes at a time, multiplied and folded; no protection against who wants two drawings to look alike.
class Impronta {
    std::uint64_t h = 0x9E3779B97F4A7C15;

    void parola(std::uint64_t v) {
        h = (h ^ v) * 0xD6E8FEB86659FD93;
        h ^= h >> 32;
    }

public:
    void byte(const void* p, std::size_t n) {
        const auto* b = static_cast<const unsigned char*>(p);
        for (; n >= 8; n -= 8, b += 8) {
            std::uint64_t v = 0;
            std::memcpy(&v, b, 8);
            parola(v);
        }
        std::uint64_t coda = n;
        for (; n > 0; --n) coda = coda << 8 | *b++;
        parola(coda);
    }
    template <class T>
    void valore(const T& v) {
        byte(&v, sizeof v);
    }
    [[nodiscard]] std::uint64_t fine() const { return h; }
};

void mesh(Impronta& i, const Mesh& m) {
    i.valore(m.nx);
    i.valore(m.ny);
    for (int riga = 0; riga < m.ny && riga < 100; ++riga)
        for (int colonna = 0; colonna < m.nx && colonna < 100; ++colonna) {
            i.valore(m.x[riga][colonna]);
            i.valore(m.y[riga][colonna]);
        }
}

void registrazione(Impronta& i) {
    for (const double v : {xAttacco5, yAttacco5, decimiUnita, Scaladis, Xfoglio, yfoglio}) i.valore(v);
    i.valore(OKAttacco5);
    i.valore(UnitaMCorrente);
    const ActiveAttach& a = attaccoAttivo;
    i.valore(a.xAtt);
    i.valore(a.yAtt);
    i.valore(a.tipo);
    i.valore(a.opzione);
    i.valore(a.modificato);
}

std::uint64_t impronta() {
    Impronta i;
    for (std::int32_t n = 1; n <= indElem; ++n) {
        elemento e = Elem(n);
        e.selezionato = 0;
        i.valore(e);
    }
    i.valore(indElem);
    registrazione(i);
    i.valore(VisioneGraf);
    i.valore(coloriPresenti);
    for (const Colore& c : std::span(arrColori).first(static_cast<std::size_t>(coloriPresenti))) {
        i.valore(c.nome);
        i.valore(c.rgb);
        i.valore(c.penna);
    }
    mesh(i, meshOrigine);
    mesh(i, meshDestinazione);
    for (const VoceEstensione& v : VociEstensione()) {
        const std::string_view dati = Estensione(v.marca);
        i.valore(v.marca);
        i.byte(dati.data(), dati.size());
    }
    return i.fine();
}

}   // namespace

void SegnaSalvato() {
    salvata = impronta();
    sempreDiverso = false;
    MostraDiverso();
}

void SegnaDiverso() {
    sempreDiverso = true;
    MostraDiverso();
}

bool DisegnoDiverso() { return !noWindow && (sempreDiverso || impronta() != salvata); }

void MostraDiverso() {
    if (!noWindow && theWindow) SetWindowModified(theWindow, DisegnoDiverso());
}

namespace {
const VoceStato righe[] = {
    {"sempreDiverso", [] { sempreDiverso = false; }, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
