// The sections of a DXF file: what is read of the tables, the blocks, and the entities; and the whole reading.
#include <cstdlib>

#include "display/Ridisegno.h"
#include "editing/SpostaXY.h"
#include "exchange/DXF.h"
#include "exchange/EntitaDXF.h"
#include "exchange/GruppiDXF.h"
#include "exchange/Operazione.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Documento.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::string_view zero = "  0";

// --- tables

// One layer, from its defaults on. False when the file ended inside it.
bool unLucido(LetturaDXF& l) {
    constexpr std::int16_t interoMalformato = 0;
    if (indluc < maxLayerDxf) ++indluc;   // a further layer overwrites the last
    layerdxfT& layer = Layerdxf[static_cast<std::size_t>(indluc - 1)];
    layer = layerdxfT{};
    layer.nome = Str255To15(NumToString(indluc));
    while (!l.righe.finite()) {
        switch (CodiceGruppo(l.righe.riga())) {
        case g0: return true;
        case g62: {
            std::int16_t v = 0;
            const std::string_view s = l.righe.riga();
            if (s.empty() && l.righe.finite()) break;
            const Intero esito = InteroDaRiga(s, -255, 255, v);
            if (esito == Intero::malformato) Sbaglio(interoMalformato, uscita);
            if (esito == Intero::fuoriLimiti) l.resoconto.coloreFuori();
            if (v != 0) layer.colore = static_cast<std::int16_t>(std::abs(v));   // negative: the layer is off
            break;
        }
        case g6: layer.pattern = RigaToPat(l.righe.riga()); break;
        case g2:
            layer.intero = l.alfabeto.nome(l.righe.riga());
            layer.nome = Str255To15(PStr255(std::string_view(layer.intero)));
            break;
        default: l.righe.riga();
        }
    }
    return false;
}

void Lucidi(LetturaDXF& l) {
    MostraOperazione("LAYER");
    if (!l.righe.cerca(zero)) return;
    while (!l.righe.finite()) {
        const std::string_view nome = l.righe.riga();
        if (StessaParola(nome, "ENDTAB")) break;
        if (StessaParola(nome, "LAYER")) {
            if (!unLucido(l)) break;
        } else if (!l.righe.cerca(zero)) {
            break;
        }
    }
    NuoviLayerDXF();
}

void TipiLinea(LetturaDXF& l) {
    MostraOperazione("LTYPE");
    l.righe.salta("ENDTAB");
}

void Stile(LetturaDXF& l) {
    MostraOperazione("STYLE");
    l.righe.salta("ENDTAB");
}

void Tables(LetturaDXF& l) {
    while (l.righe.cerca(zero)) {
        const std::string_view nome = l.righe.riga();
        if (StessaParola(nome, "ENDSEC")) return;
        if (!StessaParola(nome, "TABLE")) {
            SysBeep(30);
            return;
        }
        l.righe.riga();
        const std::string_view tabella = l.righe.riga();
        if (StessaParola(tabella, "LTYPE"))
            TipiLinea(l);
        else if (StessaParola(tabella, "LAYER"))
            Lucidi(l);
        else if (StessaParola(tabella, "STYLE"))
            Stile(l);
        else
            l.righe.salta("ENDTAB");
    }
}

// --- blocks

// The head of a block, up to its first entity. False when the file ended inside it.
bool testaBlocco(LetturaDXF& l, TBloccoDXF& b) {
    const auto reale = [&l](double& dove) {
        const std::string_view s = l.righe.riga();
        if (!s.empty() || !l.righe.finite()) RealeDaRiga(s, dove);
    };
    while (!l.righe.finite()) {
        switch (CodiceGruppo(l.righe.riga())) {
        case g0: return true;
        case g10: reale(b.x); break;
        case g20: reale(b.y); break;
        case g30: reale(b.z); break;
        case g8: b.layer = CercaLayer(Str255To15(PStr255(std::string_view(l.alfabeto.nome(l.righe.riga()))))); break;
        case g2:
        case g3: b.nome = l.alfabeto.nome(l.righe.riga()).substr(0, 63).c_str(); break;
        case g5:
            b.conHandle = 1;
            l.righe.riga();
            break;
        case g70:
            b.conFlag = 1;
            l.righe.riga();
            break;
        default: l.righe.riga();
        }
    }
    return false;
}

void blocchi(LetturaDXF& l) {
    RimuoviBlocchiDXF();
    TLeggiEntitaDXF entita(l, true);
    if (!l.righe.cerca(zero)) return;
    while (!l.righe.finite()) {
        const std::string_view nome = l.righe.riga();
        if (StessaParola(nome, "ENDSEC")) break;
        if (!StessaParola(nome, "BLOCK")) {
            l.righe.cerca(zero);
            continue;
        }
        MostraOperazione("BLOCK");
        BlocchiDXF.emplace_back();
        const auto numero = static_cast<std::int32_t>(BlocchiDXF.size());
        BlocchiDXF.back().primo = indElem;
        if (testaBlocco(l, BlocchiDXF.back())) entita.Leggi();
        BlocchiDXF.back().ultimo = indElem - 1;
        ConosciBloccoDXF(numero);
        if (CodiceGruppo(l.righe.riga()) != g0) l.righe.cerca(zero);
    }
    LettiBlocchiDXF = !BlocchiDXF.empty();
}

void Entita(LetturaDXF& l) {
    TLeggiEntitaDXF entita(l, false);
    entita.Leggi();
}

void Sezione(LetturaDXF& l) {
    static constexpr struct {
        std::string_view nome;
        void (*leggi)(LetturaDXF&);
    } sezioni[] = {{"TABLES", Tables}, {"BLOCKS", blocchi}, {"ENTITIES", Entita}};
    indluc = 0;
    NuoviLayerDXF();
    while (!l.righe.finite()) {
        if (!l.righe.cerca(zero) || !l.righe.cerca("SECTION")) return;
        if (!l.righe.cerca("  2")) {
            SysBeep(30);
            return;
        }
        const std::string_view nome = l.righe.riga();
        bool nota = false;
        for (const auto& s : sezioni) {
            if (!StessaParola(nome, s.nome)) continue;
            nota = true;
            s.leggi(l);
            break;
        }
        if (!nota) l.righe.salta("ENDSEC");
    }
}

// The character set, from the first block of the file.
void guardaIntestazione(AlfabetoDxf& alfabeto) {
    const char* inizio = nullptr;
    std::int64_t quanti = 0;
    if (FSPeek(RefNum, inizio, quanti) != noErr || quanti <= 0) return;
    const std::string_view testo(inizio, static_cast<std::size_t>(quanti));
    alfabeto.scegli(testo);
    constexpr std::string_view bom = "\xEF\xBB\xBF";
    std::int64_t qui = 0;
    if (testo.substr(0, bom.size()) == bom && GetFPos(RefNum, qui) == noErr)
        SetFPos(RefNum, qui + static_cast<std::int64_t>(bom.size()));
}

}   // namespace

bool ApriDXF(FSSpec& file) {
    constexpr std::int16_t tipiTesti = 302;
    return NavGetFile(TestoDi(TestoScambio::invitoLettura), tipiTesti, file);
}

void LeggiDXF() {
    const std::int16_t corpo = gFontSize;
    const std::int32_t primo = indElem + 1;
    EndFile = 0;
    AzzeraReadlnDisco();
    InizioTabelleDXF();
    AlfabetoDxf alfabeto;
    guardaIntestazione(alfabeto);
    ProgressOpen(TestoDi(TestoScambio::avanzaLettura));
    LetturaDXF lettura{RigheDxf(), alfabeto, {}};
    {
        const LatoRimandato rimanda;
        Sezione(lettura);
    }
    ProgressClose();
    const bool interrotta = uscita != 0;
    RimuoviBlocchiDXF();
    SpostaXY();
    PoniAnnulla(aNiente);
    gFontSize = corpo;
    FineOperazione();
    InvalFinestra();
    const bool fermata = lettura.righe.fermata();
    ElementiContati entrati;
    entrati.contaRecord(primo);
    lettura.resoconto.mostra(entrati, interrotta || fermata ? lettura.righe.lette() : 0, fermata);
}

}   // namespace tessaro
