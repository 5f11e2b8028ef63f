// Groups that all entities share, names, and the reading as a whole.
#include "dwg/kit/dxfleggi/LetturaDxfKit.h"

#include <algorithm>

#include "dwg/kit/Alfabeto.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr double radianti = 3.14159265358979323846 / 180;

template <class P>
bool poni(LetturaDxfKit& l, int codice, int primo, P& p) {
    if (codice == primo)
        p.x = l.g.reale();
    else if (codice == primo + 10)
        p.y = l.g.reale();
    else if (codice == primo + 20)
        p.z = l.g.reale();
    else
        return false;
    return true;
}

// The normals of the entities that have one.
OdGeVector3d* normaleDi(OdDbEntity& e) {
    switch (e.classe) {
    case OdDbClasse::Line: return &static_cast<OdDbLine&>(e).normal;
    case OdDbClasse::Circle: return &static_cast<OdDbCircle&>(e).normal;
    case OdDbClasse::Arc: return &static_cast<OdDbArc&>(e).normal;
    case OdDbClasse::Ellipse: return &static_cast<OdDbEllipse&>(e).normal;
    case OdDbClasse::Text:
    case OdDbClasse::Attribute:
    case OdDbClasse::AttributeDefinition: return &static_cast<OdDbTextBase&>(e).normal;
    case OdDbClasse::MText: return &static_cast<OdDbMText&>(e).normal;
    case OdDbClasse::Solid: return &static_cast<OdDbSolid&>(e).normal;
    case OdDbClasse::Trace: return &static_cast<OdDbTrace&>(e).normal;
    case OdDbClasse::Polyline:
    case OdDbClasse::Polyline2d: return &static_cast<OdDbPolylineBase&>(e).normal;
    case OdDbClasse::BlockReference:
    case OdDbClasse::MInsertBlock: return &static_cast<OdDbBlockBase&>(e).normal;
    default: return nullptr;
    }
}

double* spessoreDi(OdDbEntity& e) {
    switch (e.classe) {
    case OdDbClasse::Line: return &static_cast<OdDbLine&>(e).thickness;
    case OdDbClasse::Circle: return &static_cast<OdDbCircle&>(e).thickness;
    case OdDbClasse::Arc: return &static_cast<OdDbArc&>(e).thickness;
    default: return nullptr;
    }
}

}   // namespace

bool LetturaDxfKit::coordinata(int codice, int primo, OdGePoint3d& p) { return poni(*this, codice, primo, p); }
bool LetturaDxfKit::coordinata(int codice, int primo, OdGeVector3d& v) { return poni(*this, codice, primo, v); }
double LetturaDxfKit::angolo() { return g.reale() * radianti; }
std::int16_t LetturaDxfKit::i16() {
    return static_cast<std::int16_t>(std::clamp<std::int64_t>(g.intero(), -32768, 32767));
}

bool LetturaDxfKit::alProssimo() {
    gruppi([](int) { return false; });
    return !nome.empty();
}

std::string LetturaDxfKit::utf8(std::string_view bytes) {
    std::string s = alfabeto.utf8(bytes);
    for (std::size_t i = s.find('^'); i != std::string::npos && i + 1 < s.size(); i = s.find('^', i + 1)) {
        const char c = s[i + 1];
        if (c == ' ')
            s.erase(i + 1, 1);
        else if (c >= '@' && c <= '_')
            s.replace(i, 2, 1, c == 'I' || c == 'J' || c == 'M' ? ' ' : '?');
    }
    return s;
}

OdDbObjectId LetturaDxfKit::layer(std::string_view bytes) {
    if (!idUltimoLayer.isNull() && bytes == ultimoLayer) return idUltimoLayer;
    ultimoLayer = bytes;
    return idUltimoLayer = db.layers.getOrAdd(utf8(ultimoLayer));
}

OdDbObjectId LetturaDxfKit::linetype(std::string_view bytes) {
    if (StessaParola(bytes, "BYLAYER") || bytes.empty()) return {};
    return db.linetypes.getOrAdd(utf8(bytes));
}

OdDbObjectId LetturaDxfKit::blocco(std::string_view bytes) {
    std::string s = utf8(bytes);
    if (StessaParola(s, "$MODEL_SPACE")) return db.modelSpace;   // as R12 calls them
    if (StessaParola(s, "$PAPER_SPACE")) return db.paperSpace;
    return db.blocks.getOrAdd(s);
}

bool LetturaDxfKit::comune(int codice, OdDbEntity& e) {
    constexpr int vero = 420;
    switch (codice) {
    case 5: {
        const std::string_view s = g.testo();
        e.handle = 0;
        for (const char c : s) {
            const int v = c >= '0' && c <= '9'   ? c - '0'
                          : c >= 'A' && c <= 'F' ? c - 'A' + 10
                          : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                                 : -1;
            if (v >= 0) e.handle = e.handle << 4 | static_cast<OdDbHandle>(v);
        }
        return true;
    }
    case 6: e.linetype = linetype(g.testo()); return true;
    case 8: e.layer = layer(g.testo()); return true;
    case 39:
        if (double* t = spessoreDi(e)) {
            *t = g.reale();
            return true;
        }
        return false;
    case 60: e.visible = g.intero() == 0; return true;
    case 62: {
        const std::int64_t i = g.intero();
        if (e.color.metodo == OdCmColor::byColor) return true;   // the true colour came first
        e.color.setColorIndex(i >= 0 && i <= 256 ? static_cast<std::int16_t>(i) : std::int16_t{256});
        return true;
    }
    case 67: inCarta = g.intero() == 1; return true;
    case 370: e.lineWeight = i16(); return true;
    case vero: {
        const std::int16_t indice = e.color.indice;
        const bool conIndice = e.color.metodo == OdCmColor::byACI;
        const auto v = static_cast<std::uint32_t>(g.intero());
        e.color.setRGB(static_cast<std::uint8_t>(v >> 16), static_cast<std::uint8_t>(v >> 8),
                       static_cast<std::uint8_t>(v));
        if (conIndice) e.color.indice = indice;
        return true;
    }
    case 210:
    case 220:
    case 230:
        if (OdGeVector3d* n = normaleDi(e)) return coordinata(codice, 210, *n);
        return false;
    default: return false;
    }
}

void LetturaDxfKit::salta() {
    constexpr int gruppoApplicazione = 102;
    if (g.codice != gruppoApplicazione) {
        g.salta();
        return;
    }
    if (!g.testo().starts_with('{')) return;
    while (g.prossimo()) {
        if (g.codice == gruppoApplicazione && g.testo().starts_with('}')) return;
        if (g.codice != gruppoApplicazione) g.salta();
    }
}

namespace {

// Sections in any order and number; a file of other things is none.
bool sezioni(LetturaDxfKit& l, bool& dentro) {
    static constexpr struct {
        std::string_view nome;
        void (*leggi)(LetturaDxfKit&);
    } note[] = {{"HEADER", LeggiIntestazione},
                {"TABLES", LeggiTabelle},
                {"BLOCKS", LeggiBlocchi},
                {"ENTITIES", [](LetturaDxfKit& x) {
                     x.alProssimo();
                     LeggiEntitaDxf(x, x.db.modelSpace, "ENDSEC");
                 }}};
    bool una = false;
    while (l.alProssimo()) {
        if (StessaParola(l.nome, "EOF")) return una;
        if (!StessaParola(l.nome, "SECTION")) continue;
        if (!l.g.prossimo() || l.g.codice != 2) break;
        una = dentro = true;
        const std::string sezione(l.g.testo());
        const auto* const nota = std::find_if(std::begin(note), std::end(note),
                                              [&](const auto& n) { return StessaParola(sezione, n.nome); });
        if (nota != std::end(note))
            nota->leggi(l);
        else
            while (l.alProssimo() && !StessaParola(l.nome, "ENDSEC")) {}
        if (l.nome.empty()) break;   // the file ended inside
        dentro = false;
    }
    return una;
}

OdError esito(const LetturaDxfKit& l, bool una, bool dentro) {
    if (l.g.fermato()) return {eUserBreak, l.g.dove(), {}};
    if (uscita != 0) return {eNotOpenForRead, 0, {}};   // told already, by the system's own message
    if (!una || l.g.danneggiato()) return {eBadDxfFile, l.g.dove(), {}};
    if (dentro) return {eDxfTruncated, l.g.dove(), {}};
    return {};
}

}   // namespace

OdError LeggiDxfKit(OdDbDatabase& db, const FSSpec& file, OdDbHostAppProgressMeter&) {
    const std::int16_t aperto = RefNum;
    if (const OSErr e = FSpOpenDF(file, fsRdPerm, RefNum); e != noErr) {
        RefNum = aperto;
        return {e == fnfErr ? eFileNotFound : eNotOpenForRead, e, {}};
    }
    EndFile = 0;
    uscita = 0;
    AzzeraReadlnDisco();
    AlfabetoDxf alfabeto;
    const char* inizio = nullptr;
    std::int64_t quanti = 0;
    if (FSPeek(RefNum, inizio, quanti) == noErr && quanti > 0)
        alfabeto.scegli({inizio, static_cast<std::size_t>(quanti)});
    OdError e;
    {
        LetturaDxfKit l(db);
        l.alfabeto = alfabeto;
        bool dentro = false;
        const bool una = sezioni(l, dentro);
        e = esito(l, una, dentro);
    }
    FSClose(RefNum);
    RefNum = aperto;
    return e;
}

}   // namespace tessaro
