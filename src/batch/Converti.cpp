// The command `convert`: from any kind of file that is read to any that is written.
#include <array>

#include "batch/Comandi.h"
#include "batch/Misure.h"
#include "batch/Motore.h"
#include "batch/Rigo.h"
#include "dwg/EsportaDWG.h"
#include "dwg/kit/OdVersioni.h"

namespace tessaro {

namespace {

struct Versione {
    std::string_view nome;
    std::int16_t numero;   // of the drawing database's enumeration; 0: the program's own DXF
};
constexpr Versione versioni[] = {{"2010", 29}, {"2007", 27}, {"2004", 25}, {"2000", 23},
                                 {"r14", 21},  {"r12", 16},  {"r10", 0}};

// The newest that the kind of file has a writer for, or the one that was asked for. False, and said: there is none.
bool scegliVersione(const Chiamata& c, const GenereFile& forma) {
    const bool dwg = forma.suffisso == ".dwg", dxf = forma.suffisso == ".dxf";
    std::vector<std::string_view> nomi;
    for (const Versione& v : versioni) {
        const bool scritta = v.numero == 0 ? dxf : PuoScrivere(dwg ? OdDbSaveType::kDwg : OdDbSaveType::kDxf, v.numero);
        nomi.push_back((dwg || dxf) && scritta ? v.nome : std::string_view{});
    }
    std::size_t quale = 0;
    while (quale < nomi.size() && nomi[quale].empty()) ++quale;
    if (!Parola(c, "version", nomi, quale)) return false;
    if (quale >= nomi.size()) return true;   // a kind without versions
    tipoFileEsportato = versioni[quale].numero == 0 ? 3 : dwg ? 1 : 2;
    if (versioni[quale].numero != 0) outVer = versioni[quale].numero;
    return true;
}

}   // namespace

Esito ComandoConverti(const Chiamata& c) {
    const std::string &da = c.file[0], &a = c.file[1];
    if (StessoFile(da, a)) return Rifiuta(c, Esito::uso, a, Testo(Frase::stessoFile));
    const GenereFile* forma = FormaUscita(c, a);
    if (forma == nullptr || !scegliVersione(c, *forma) || !ScegliMisure(c)) return Esito::uso;
    if (const Esito e = ApriIngresso(c, da, !forma->soloReali); e != Esito::fatto) return e;
    std::vector<std::string> note = detto.note;
    const Conteggi conti = ContaElementi();
    if (const Esito e = ScriviUscita(c, *forma, a); e != Esito::fatto) return e;
    note.insert(note.end(), detto.note.begin(), detto.note.end());
    Rigo r(c);
    r.testo("input", da).testo("output", a).testo("format", forma->suffisso.substr(1));
    r.intero("elements", conti.tutti());
    if (const std::int64_t n = ByteDi(a); n >= 0) r.intero("bytes", n);
    r.elenco("notes", note).stampa();
    return Esito::fatto;
}

}   // namespace tessaro
