// The export as a whole: the file, its header and its tables.
#include "exchange/ScriviDXF.h"

#include <array>
#include <string>

#include "dialogs/Errori.h"
#include "exchange/DXF.h"
#include "exchange/NomiLayer.h"
#include "exchange/TestoDxf.h"
#include "files/Nativo.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Unita.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Resources.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

std::array<bool, 100> LucidiOK;   // the sheets in use
std::int16_t NumPianiDXF = 0;     // those of them that the table names

constexpr std::int16_t ultimoDellaTabella = 98;   // Kept: sheet 99 is used, but neither counted nor in the table

void inizioTabella(BufferDXF& b, std::string_view nome, std::int32_t voci) {
    b.righe2("  0", "TABLE");
    b.righe2("  2", nome);
    b.intero(" 70", voci, 6);
}
void fineTabella(BufferDXF& b) { b.righe2("  0", "ENDTAB"); }

void angolo(BufferDXF& b, std::string_view variabile, const double& x, const double& y) {
    constexpr std::int16_t decimali = 8;
    double rx = 0, ry = 0;
    DigiToReal(x, y, rx, ry);
    b.righe2("  9", variabile);
    b.reale(" 10", rx, decimali);
    b.reale(" 20", ry, decimali);
}

void variabile(BufferDXF& b, std::string_view nome, std::string_view codice, std::string_view valore) {
    b.righe2("  9", nome);
    b.righe2(codice, valore);
}

}   // namespace

void ScriviHeader(ScritturaDXF& s) {
    const double x = 100 * Xfoglio, y = 100 * yfoglio;
    s.b.righe2("  0", "SECTION");
    s.b.righe2("  2", "HEADER");
    variabile(s.b, "$LTSCALE", " 40", "10");
    angolo(s.b, "$LIMMIN", 0, y);
    angolo(s.b, "$LIMMAX", x, 0);
    angolo(s.b, "$EXTMIN", 0, y);
    angolo(s.b, "$EXTMAX", x, 0);
    variabile(s.b, "$CLAYER", "  8", "1");
    variabile(s.b, "$CECOLOR", " 62", "7");
    variabile(s.b, "$CELTYPE", "  6", "CONTINUOUS");
    s.b.righe2("  0", "ENDSEC");
}

void ControllaLucidi() {
    const auto nomi = NomiLayer("");
    for (std::size_t i = 0; i < LucidiOK.size(); ++i) {
        Layerdxf[i].intero = TestoPerDxf(nomi[i]);
        Layerdxf[i].nome = Str255To15(PStr255(std::string_view(Layerdxf[i].intero)));
    }
    LucidiOK.fill(false);
    NumPianiDXF = 0;
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const std::int16_t l = Elem(i).lucido;
        if (l >= 0 && l < static_cast<std::int16_t>(LucidiOK.size())) LucidiOK[static_cast<std::size_t>(l)] = true;
    }
    for (std::size_t i = 0; i <= ultimoDellaTabella; ++i)
        if (LucidiOK[i]) ++NumPianiDXF;
}

namespace {

struct TipoLinea {
    std::string_view nome, descrizione, lunghezza;
    std::int16_t tratti;
    std::array<std::string_view, 6> tratto;
};
constexpr std::string_view mezzo = "0.5000000000000", quarto = "0.2500000000000", vuoto = "-0.2500000000000",
                           lungo = "1.2500000000000", ottavo = "-0.1250000000000", puntino = "0.0000000000000";
constexpr TipoLinea tipiLinea[] = {
    {"CONTINUOUS", "Solid line", "0.0000000000000", 0, {}},
    {"HIDDEN", "_ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ ", "0.3750000000000", 2, {quarto, ottavo}},
    {"DASHED", "__ __ __ __ __ __ __ __ __ __ __ __ __  ", "0.7500000000000", 2, {mezzo, vuoto}},
    {"PHANTOM",
     "_____ _ _ _____ _ _ _____ _ _ _____ _ _ ",
     "2.5000000000000",
     6,
     {lungo, vuoto, quarto, vuoto, quarto, vuoto}},
    {"DASHDOT", "__ . __ . __ . __ . __ . __ . __ . __ . ", "1.0000000000000", 4, {mezzo, vuoto, puntino, vuoto}},
};

}   // namespace

void ScriviTableLTypeDXF(ScritturaDXF& s) {
    s.b.righe2("  0", "SECTION");
    s.b.righe2("  2", "TABLES");
    inizioTabella(s.b, "LTYPE", static_cast<std::int32_t>(std::size(tipiLinea)));
    for (const TipoLinea& t : tipiLinea) {
        s.b.righe2("  0", "LTYPE");
        s.b.righe2("  2", t.nome);
        s.b.righe2(" 70", "    64");
        s.b.righe2("  3", t.descrizione);
        s.b.righe2(" 72", "    65");
        s.b.intero(" 73", t.tratti, 6);
        s.b.righe2(" 40", t.lunghezza);
        for (std::size_t i = 0; i < static_cast<std::size_t>(t.tratti); ++i) s.b.righe2(" 49", t.tratto[i]);
    }
    fineTabella(s.b);
}

void ScriviTableLayerDXF(ScritturaDXF& s) {
    inizioTabella(s.b, "LAYER", NumPianiDXF);
    for (std::size_t i = 0; i <= ultimoDellaTabella; ++i) {
        if (!LucidiOK[i]) continue;
        s.b.righe2("  0", "LAYER");
        s.b.righe2("  2", Layerdxf[i].intero);
        s.b.righe2(" 70", "     0");
        s.b.righe2(" 62", "     7");
        s.b.righe2("  6", "CONTINUOUS");
    }
    fineTabella(s.b);
}

void ScriviTableStyleDXF(ScritturaDXF& s) {
    static constexpr std::string_view righe[][2] = {
        {"  0", "STYLE"}, {"  2", "STANDARD"}, {" 70", "     0"}, {" 40", "0.0"}, {" 41", "1.0"},
        {" 50", "0.0"},   {" 71", "     0"},   {" 42", "0.2"},    {"  3", "txt"}, {"  4", ""},
    };
    inizioTabella(s.b, "STYLE", 1);
    for (const auto& [codice, valore] : righe) s.b.righe2(codice, valore);
    fineTabella(s.b);
    s.b.righe2("  0", "ENDSEC");
}

namespace {

constexpr std::int16_t listaNomi = 129, nomeSenzaTitolo = 1, invito = 36;
constexpr OSType tipoTesto = tipoDi("TEXT"), creatoreTesto = tipoDi("ttxt");

}   // namespace

std::uint8_t ApriDXFScr() {
    uscita = 0;
    const bool senzaTitolo = NomeD.view() == GetIndString(listaNomi, nomeSenzaTitolo);
    fType = tipoTesto;
    FSSpec file;
    if (!NavPutFile(GetIndString(listaNomi, invito), senzaTitolo ? ".dxf" : NomeD.str() + ".dxf", file)) {
        uscita = 1;
        return 0;
    }
    fileInLavoro = Utf8ToMac(file.percorso);
    IOERR2(FSpOpenReplacing(file, creatoreTesto, tipoTesto, RefNum));
    return uscita == 0;
}

void FaiDXF() {
    static constexpr void (*passi[])(ScritturaDXF&) = {
        ScriviHeader,        [](ScritturaDXF&) { ControllaLucidi(); },
        ScriviTableLTypeDXF, ScriviTableLayerDXF,
        ScriviTableStyleDXF, ScriviEntitiesDXF,
    };
    if (ApriDXFScr()) {
        SetCursor(ClockCursor);
        ScritturaDXF s;
        for (const auto passo : passi)
            if (uscita == 0) passo(s);
        s.b.righe2("  0", "EOF");
        s.b.svuota();
        if (uscita)
            FSAbandon(RefNum);   // the file that was there stays
        else
            IOERR2(FSClose(RefNum));
        SetCursor(arrowCursor);
        if (uscita == 0) MostraScritti(s, TestoScambio::nonNelFormato);
    }
    fileInLavoro.clear();
    fType = tipoTS3D;
}

}   // namespace tessaro
