// The settings files: opening them, and the start settings text.
#include "files/Impostazioni.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "dialogs/Errori.h"
#include "files/TestiFile.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

constinit double decTessCont = 10000;

PStr255 strTav("");
constinit std::int16_t databit = 8, bitstop = 1, parity = 1, velbaud = 1;
PStr255 PortaTavIn(""), PortaTavOut("");
constinit std::int16_t NeroVers = 1, RossoVers = 2, VerdeVers = 3, BluVers = 4, CianoVers = 5, MagentaVers = 6,
                       GialloVers = 7;

namespace {

constexpr OSType tipoTSCP = tipoDi("TSCP"), creatoreTSC3 = tipoDi("TSC3");
constexpr std::int32_t maxCapacita = 1500000;
constexpr std::int32_t minCapacita = 3;   // the reserved records and one element

FSSpec fileImpostazioni(const char* nome) { return FSMakeFSSpecIn(SettingsFolder(), nome); }

std::int16_t tipoTavoletta = 1;   // line 2 while the file is read

// The lines of the start settings, in order. A null target is read in a way of its own.
struct RigaTipo {
    std::int16_t* intero;
    std::int16_t min, max;
    double* reale;
    double rmin, rmax;   // Kept: told for reals, but no reader of files tests them
};
constexpr RigaTipo interoDa(std::int16_t& v, std::int16_t min, std::int16_t max) {
    return {&v, min, max, nullptr, 0, 0};
}
constexpr RigaTipo realeDa(double& v, double min, double max) { return {nullptr, 0, 0, &v, min, max}; }

const RigaTipo righeNumeri[] = {
    interoDa(tipoTavoletta, 1, 5), interoDa(databit, 6, 8),       interoDa(bitstop, 1, 3),
    interoDa(parity, 1, 3),        interoDa(btav, 500, 20000),    interoDa(htav, 500, 20000),
    realeDa(Xfoglio, 10.0, 200.0), realeDa(yfoglio, 10.0, 200.0), {},
    interoDa(NeroVers, 0, 255),    interoDa(RossoVers, 0, 255),   interoDa(VerdeVers, 0, 255),
    interoDa(BluVers, 0, 255),     interoDa(CianoVers, 0, 255),   interoDa(MagentaVers, 0, 255),
    interoDa(GialloVers, 0, 255),  realeDa(Scaladis, 0.1, 1e6),   realeDa(decimiUnita, 1.0, 1e7),
    realeDa(puntimm, 1.0, 1000.0),
};

// False when the line cannot be read or passes its bounds; a whole number out of bounds takes the nearest one.
bool leggiNumero(const RigaTipo& riga, const PStr255& s) {
    std::int16_t pos = 0;
    if (riga.intero) {
        std::int16_t v = 0;
        const std::int16_t esito = STRtoINT(riga.min, riga.max, s, v, pos, 0);
        if (esito == 1 || esito == -1 || esito == -2) *riga.intero = std::clamp(v, riga.min, riga.max);
        return esito == 1;
    }
    double v = 0;
    if (STRtoFP(riga.rmin, riga.rmax, s, v, pos, 0) != 1) return false;
    if (!std::isfinite(v) || v <= 0) return false;   // units, scales and sizes: none of them can be nothing
    *riga.reale = v;
    return true;
}

void leggiCapacita(const PStr255& s) { maxElementi = std::clamp(StringToNum(s), minCapacita, maxCapacita); }

}   // namespace

bool ApriImpostazioni(const char* nome, bool scrivere) {
    uscita = 0;
    const FSSpec file = fileImpostazioni(nome);
    OSErr e = FSpOpenDF(file, scrivere ? fsRdWrPerm : fsRdPerm, RefNum);
    if (!scrivere) return e == noErr;
    fileInLavoro = Utf8ToMac(file.percorso);
    if (e == fnfErr) {
        IOERR2(FSpCreate(file, creatoreTSC3, tipoTSCP));
        if (!uscita) e = FSpOpenDF(file, fsRdWrPerm, RefNum);
    }
    if (!uscita) IOERR2(e);
    if (uscita) fileInLavoro.clear();
    return !uscita;
}

void ChiudiImpostazioni() {
    const OSErr e = FSClose(RefNum);
    if (!uscita) IOERR2(e);
    fileInLavoro.clear();
}

void LeggiTipo(std::int16_t& velocita) {
    std::int32_t n = 0;
    PStr255 s;
    std::string rifiutate;
    const auto rifiuta = [&](std::size_t riga) {
        rifiutate += (rifiutate.empty() ? "" : ", ") + std::to_string(riga);
        uscita = 0;   // one line that cannot be read does not end the reading
    };
    LeggiRiga(strTav, n);
    std::size_t numero = 1;
    for (const RigaTipo& riga : righeNumeri) {
        LeggiRiga(s, n);
        if (uscita) return;
        ++numero;
        if (!riga.intero && !riga.reale)
            leggiCapacita(s);
        else if (!leggiNumero(riga, s))
            rifiuta(numero);
    }
    LeggiRiga(s, n);   // one more, for nothing
    velocita = tipoTavoletta;
    if (!rifiutate.empty()) MostraGuasto({noErr, TestoDi(TestoFile::impostazioni, rifiutate), {}, -1});
}

void leggiparam() {
    uscita = 0;
    EndFile = 0;
    const FSSpec file = fileImpostazioni("TESSCONT");
    fileInLavoro = Utf8ToMac(file.percorso);
    IOERR2(FSpOpenDF(file, fsRdPerm, RefNum));
    if (uscita) {
        maxElementi = maxCapacita;   // everything else has its start value already
    } else {
        std::int16_t tipo = 0;
        LeggiTipo(tipo);
        if (tipo != 0) velbaud = tipo;   // 0: the file ended before its second line
        FSClose(RefNum);
    }
    fileInLavoro.clear();
    decTessCont = decimiUnita;
    TabAbilit = 0;
}

namespace {
const VoceStato righe[] = {
    voce<decTessCont>("decTessCont"), voce<strTav>("strTav"),           voce<databit>("databit"),
    voce<bitstop>("bitstop"),         voce<parity>("parity"),           voce<velbaud>("velbaud"),
    voce<PortaTavIn>("PortaTavIn"),   voce<PortaTavOut>("PortaTavOut"), voce<NeroVers>("NeroVers"),
    voce<RossoVers>("RossoVers"),     voce<VerdeVers>("VerdeVers"),     voce<BluVers>("BluVers"),
    voce<CianoVers>("CianoVers"),     voce<MagentaVers>("MagentaVers"), voce<GialloVers>("GialloVers"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
