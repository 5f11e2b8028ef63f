// The live transformation's block in the native file: 627 bytes. One walk over the fields serves writing and reading,
// so the two cannot drift apart.
#include "registration/attaccoDinamico.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

template <class Campo>
void percorriTransf(TransfRec& t, Campo campo) {
    for (double* v : {&t.deltaX, &t.deltaY, &t.deltaZ, &t.rot11, &t.rot12, &t.rot21, &t.rot22, &t.ingr, &t.x1, &t.y1,
                      &t.z1, &t.x2, &t.y2, &t.z2})
        campo(*v);
}

template <class Campo>
void percorriCoppia(Coppia& c, Campo campo) {
    campo(c.x);
    campo(c.y);
}

template <class Campo>
void percorriSolutore(Att4Pt& p, Campo campo) {
    for (Coppia& c : p.src) percorriCoppia(c, campo);
    percorriCoppia(p.srcC, campo);
    for (Coppia& c : p.dst) percorriCoppia(c, campo);
    percorriCoppia(p.dstC, campo);
    campo(p.okSrc);
    campo(p.okDst);
    for (double* v : {&p.o1, &p.len1, &p.mid1, &p.o2, &p.len2, &p.mid2, &p.o1d, &p.len1d, &p.mid1d, &p.o2d, &p.len2d,
                      &p.mid2d, &p.ang1, &p.ang2, &p.ang1d, &p.ang2d})
        campo(*v);
    for (Coppia* c : {&p.fuga1, &p.fuga2, &p.fuga1d, &p.fuga2d}) percorriCoppia(*c, campo);
    for (std::uint8_t* v : {&p.par1d, &p.par2d, &p.par1, &p.par2}) campo(*v);
    for (double* v : {&p.k1, &p.k2, &p.r1, &p.r2, &p.t1, &p.t2, &p.d1, &p.d2}) campo(*v);
}

template <class Campo>
void percorri(ActiveAttach& a, Campo campo) {
    campo(a.rotazione);
    auto tipo = static_cast<std::uint8_t>(a.tipo & 0xFF);   // the low byte alone is stored
    campo(tipo);
    a.tipo = tipo;
    percorriTransf(a.transf, campo);
    for (std::size_t i = 0; i < a.xAtt.size(); ++i) {
        campo(a.xAtt[i]);
        campo(a.yAtt[i]);
    }
    campo(a.opzione);
    campo(a.modificato);
    percorriSolutore(a.lavoro, campo);
    campo(a.radioTipo);
}

struct Scrivi {
    void operator()(const double& v) const { scrivir(v); }
    void operator()(std::uint8_t v) const { scrivib(v); }
    void operator()(std::int16_t v) const { scrivii(v); }
};

struct Leggi {
    void operator()(double& v) const { v = leggir(); }
    void operator()(std::uint8_t& v) const { v = leggib(); }
    void operator()(std::int16_t& v) const { v = leggii(); }
};

}   // namespace

void ActiveAttach::WriteAttacco() {
    ActiveAttach copia = *this;
    percorri(copia, Scrivi{});
}

// A block that ends early changes nothing.
void ActiveAttach::ReadAttacco() {
    ActiveAttach letto = *this;
    percorri(letto, Leggi{});
    if (uscita) return;
    *this = letto;
    fuga = MappaFuga(lavoro);
}

}   // namespace tessaro
