// The header's variables and the classes. What the drawing does not decide has the value of a new drawing.
#include <numbers>

#include "dwg/kit/scrividwg/StesuraDwg.h"

namespace tessaro {

namespace {

// The count of bits at the beginning of a section of 2007 and later counts its own.
constexpr std::uint32_t lunghezzaPropria = 32;

// The variables of a format: one stream until 2004, three from 2007 on.
struct Variabili {
    const StesuraDwg& s;
    BitDwg d, testi, riferimenti;

    [[nodiscard]] bool da(FormatoDwg f) const { return s.formato >= f; }
    [[nodiscard]] bool solo14() const { return s.formato == FormatoDwg::r14; }
    void H(unsigned codice, OdDbHandle h) { (da(FormatoDwg::r2007) ? riferimenti : d).H(codice, h); }
    void T(std::string_view t) {
        if (da(FormatoDwg::r2007)) {
            const std::string u = TestoDwg16(t);
            testi.BS(static_cast<std::int32_t>(u.size() / 2));
            testi.byte(u);
        } else {
            const std::string b = TestoDwg(t);
            d.BS(static_cast<std::int32_t>(b.size()));
            d.byte(b);
        }
    }
    void colore(std::int16_t indice) {
        if (!da(FormatoDwg::r2004)) return d.BS(indice);
        d.BS(0);
        d.BL(static_cast<std::int32_t>(indice == 256 ? 0xC0000000U
                                       : indice == 0 ? 0xC1000000U
                                                     : 0xC3000000U + static_cast<unsigned>(indice)));
        d.RC(0);
    }
    void B(std::initializer_list<int> v) {
        for (const int x : v) d.B(x != 0);
    }
    void BS(std::initializer_list<int> v) {
        for (const int x : v) d.BS(x);
    }
    void BD(std::initializer_list<double> v) {
        for (const double x : v) d.BD(x);
    }
    void P(const OdGePoint3d& p) { d.BD3(p); }
    void momento(const OdTimeStamp& t) {
        d.BL(t.giorno);
        d.BL(t.millisecondi);
    }
};

void modi(Variabili& v) {
    v.B({1, 1});                  // DIMASO DIMSHO
    if (v.solo14()) v.B({0});     // DIMSAV
    v.B({0, 0, 1, 1, 0, 1, 0});   // PLINEGEN ORTHOMODE REGENMODE FILLMODE QTEXTMODE PSLTSCALE LIMCHECK
    if (v.solo14()) v.B({0});     // BLIPMODE
    if (v.da(FormatoDwg::r2004)) v.B({0});
    v.B({1, 0, 0, 0});             // USRTIMER SKPOLY ANGDIR SPLFRAME
    if (v.solo14()) v.B({1, 1});   // ATTREQ ATTDIA
    v.B({0, 1});                   // MIRRTEXT WORLDVIEW
    if (v.solo14()) v.B({0});      // WIREFRAME
    v.B({1, 0, 1});                // TILEMODE PLIMCHECK VISRETAIN
    if (v.solo14()) v.B({0});      // DELOBJ
    v.B({0, 0});                   // DISPSILH PELLIPSE
    v.BS({1});                     // PROXYGRAPHICS
    if (v.solo14()) v.BS({2});     // DRAGMODE
    v.BS({3020, 2, 4, 0, 0});      // TREEDEPTH LUNITS LUPREC AUNITS AUPREC
    if (v.solo14()) v.d.BL(0);     // OSMODE
    v.BS({1});                     // ATTMODE
    if (v.solo14()) v.BS({1});     // COORDS
    v.BS({0});                     // PDMODE
    if (v.solo14()) v.BS({1});     // PICKSTYLE
    if (v.da(FormatoDwg::r2004))
        for (int i = 0; i < 3; ++i) v.d.BL(0);
    v.BS({0, 0, 0, 0, 0});   // USERI1 to 5
    v.BS({8, 6, 6, 6, 6, 6, 6, 3,
          70});                // SPLINESEGS SURFU SURFV SURFTYPE SURFTAB1 SURFTAB2 SPLINETYPE SHADEDGE SHADEDIF
    v.BS({0, 64, 4, 0, 50});   // UNITMODE MAXACTVP ISOLINES CMLJUST TEXTQLTY
}

void misure(Variabili& v) {
    const OdDbHeader& h = v.s.db.header;
    v.BD({h.ltscale, 0.2, 0.05, 0.1, 0.5, 0, 0, 0,
          0});               // LTSCALE TEXTSIZE TRACEWID SKETCHINC FILLETRAD THICKNESS ANGBASE PDSIZE PLINEWID
    v.BD({0, 0, 0, 0, 0});   // USERR1 to 5
    v.BD({0.5, 0.5, 1, 0, 0.5, 1, 1});           // CHAMFERA to D FACETRES CMLSCALE CELTSCALE
    if (!v.da(FormatoDwg::r2007)) v.T("acad");   // MENU
    v.momento(h.tdCreate);
    v.momento(h.tdUpdate);
    if (v.da(FormatoDwg::r2004))
        for (int i = 0; i < 3; ++i) v.d.BL(0);
    v.momento({});   // TDINDWG
    v.momento({});   // TDUSRTIMER
    v.colore(256);   // CECOLOR
    v.d.H(hProprio, v.s.db.handseed);
    v.H(hPunta, v.s.db.layers[h.clayer].handle);
    v.H(hPunta, v.s.db.textStyles[h.textStyle].handle);
    v.H(hPunta, v.s.linea("ByLayer"));
    if (v.da(FormatoDwg::r2007)) v.H(hPunta, 0);   // CMATERIAL
    v.H(hPunta, v.s.db.handleDimStyleStandard);
    v.H(hPunta, v.s.db.handleMlineStyleStandard);
    if (v.da(FormatoDwg::r2000)) v.BD({0});   // PSVPSCALE
}

// One of the two spaces: base, extents, limits, elevation and coordinate system.
void spazio(Variabili& v, const OdGePoint3d& min, const OdGePoint3d& max, const OdGePoint3d& limMin,
            const OdGePoint3d& limMax) {
    v.P({});
    v.P(min);
    v.P(max);
    v.d.RD2(limMin.x, limMin.y);
    v.d.RD2(limMax.x, limMax.y);
    v.BD({0});
    v.P({});
    v.P({1, 0, 0});
    v.P({0, 1, 0});
    v.H(hPunta, 0);
    if (!v.da(FormatoDwg::r2000)) return;
    v.H(hPunta, 0);
    v.BS({0});
    v.H(hPunta, 0);
    for (int i = 0; i < 6; ++i) v.P({});   // origins of the six views
}

void quote14(Variabili& v) {
    v.B({0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0});
    v.d.RC(2);
    v.d.RC(0);
    v.B({0, 0});
    v.d.RC(1);
    v.d.RC(0);
    v.d.RC(3);
    v.B({0});
    for (int i = 0; i < 4; ++i) v.d.RC(0);
    v.BS({2, 0, 4, 4, 2, 2});
    v.H(hPunta, v.s.db.textStyles[v.s.db.header.textStyle].handle);
}

void quote(Variabili& v) {
    const OdDbHandle stile = v.s.db.textStyles[v.s.db.header.textStyle].handle;
    if (v.da(FormatoDwg::r2000) && !v.da(FormatoDwg::r2007)) {
        v.T("");   // DIMPOST
        v.T("");   // DIMAPOST
    }
    if (v.solo14()) quote14(v);
    v.BD({1, 0.18, 0.0625, 0.38, 0.18, 0, 0, 0, 0});   // DIMSCALE ASZ EXO DLI EXE RND DLE TP TM
    if (v.da(FormatoDwg::r2007)) {
        v.BD({1, std::numbers::pi / 4});
        v.BS({0});
        v.colore(256);
    }
    if (v.da(FormatoDwg::r2000)) {
        v.B({0, 0, 1, 1, 0, 0});   // DIMTOL LIM TIH TOH SE1 SE2
        v.BS({0, 0, 0});           // DIMTAD ZIN AZIN
    }
    if (v.da(FormatoDwg::r2007)) v.BS({0});       // DIMARCSYM
    v.BD({0.18, 0.09, 0, 25.4, 1, 0, 1, 0.09});   // DIMTXT CEN TSZ ALTF LFAC TVP TFAC GAP
    if (v.solo14())
        for (int i = 0; i < 5; ++i) v.T("");
    if (v.da(FormatoDwg::r2000)) {
        v.BD({0});
        v.B({0});
        v.BS({2});
        v.B({0, 0, 0, 0});
    }
    for (int i = 0; i < 3; ++i) v.colore(0);   // DIMCLRD E T
    if (!v.da(FormatoDwg::r2000)) return;
    v.BS({0, 4, 4, 2, 2, 0, 0, 2, 46, 0, 0});   // DIMADEC DEC TDEC ALTU ALTTD AUNIT FRAC LUNIT DSEP TMOVE JUST
    v.B({0, 0});
    v.BS({1, 0, 0, 0});
    v.B({0});
    v.BS({3});
    if (v.da(FormatoDwg::r2007)) v.B({0});
    if (v.da(FormatoDwg::r2010)) {
        v.B({0});
        v.BD({100, 100});
    }
    v.H(hPunta, stile);
    for (int i = 0; i < 4; ++i) v.H(hPunta, 0);   // arrows
    if (v.da(FormatoDwg::r2007))
        for (int i = 0; i < 3; ++i) v.H(hPunta, 0);
    v.BS({-2, -2});
}

void tabelle(Variabili& v) {
    const OdDbDatabase& db = v.s.db;
    for (const OdDbHandle h : {db.blocks.handle, db.layers.handle, db.textStyles.handle, db.linetypes.handle,
                               db.handleViews, db.handleUcs, db.handleVport})
        v.H(hPossiede, h);
    v.H(hPossiede, db.regApps.handle);
    v.H(hPossiede, db.handleDimStyles);
    if (!v.da(FormatoDwg::r2004)) v.H(hPossiede, db.handleVpEntHdr);
    v.H(hPunta, v.s.dizionario("ACAD_GROUP"));
    v.H(hPunta, v.s.dizionario("ACAD_MLINESTYLE"));
    v.H(hPossiede, db.dizionari.empty() ? 0 : db.dizionari.front().handle);
    if (!v.da(FormatoDwg::r2000)) return;
    v.BS({1, 70});   // TSTACKALIGN TSTACKSIZE
    if (!v.da(FormatoDwg::r2007)) {
        v.T("");
        v.T("");
    }
    v.H(hPunta, v.s.dizionario("ACAD_LAYOUT"));
    v.H(hPunta, 0);   // plot settings
    v.H(hPunta, v.s.dizionario("ACAD_PLOTSTYLENAME"));
    if (v.da(FormatoDwg::r2004)) {
        v.H(hPunta, 0);   // materials
        v.H(hPunta, 0);   // colours
    }
    if (v.da(FormatoDwg::r2007)) v.H(hPunta, 0);        // visual styles
    constexpr std::int32_t pianoPredefinito = 0x2A1D;   // weights by layer, plot styles by colour
    v.d.BL(pianoPredefinito);
    v.BS({db.header.insUnits, 0});   // INSUNITS CEPSNTYPE
    if (!v.da(FormatoDwg::r2007)) {
        v.T("{00000000-0000-0000-0000-000000000000}");   // FINGERPRINTGUID
        v.T("{00000000-0000-0000-0000-000000000000}");   // VERSIONGUID
    }
    if (v.da(FormatoDwg::r2004)) {
        for (const unsigned x : {127U, 0U, 0U, 0U, 2U, 0U})
            v.d.RC(x);      // SORTENTS INDEXCTL HIDETEXT XCLIPFRAME DIMASSOC HALOGAP
        v.BS({257, 257});   // OBSCOLOR INTERSECTIONCOLOR
        v.d.RC(0);
        v.d.RC(0);
        if (!v.da(FormatoDwg::r2007)) v.T("");   // PROJECTNAME
    }
}

// What 2007 added: camera, lofts, place on the globe, shadows.
void scena(Variabili& v) {
    if (!v.da(FormatoDwg::r2007)) return;
    constexpr double angolo = std::numbers::pi / 2;
    v.B({0});
    v.d.BL(0);
    v.d.BL(0);
    v.BD({0, 2, 50, 2, 50, 0});
    v.d.RC(1);
    v.d.RC(1);
    v.BD({5, 80, angolo, angolo, 0, 0});
    v.BS({7});
    v.d.RC(1);
    v.BD({37.795, -122.394, 0});
    v.d.BL(-8000);
    for (const unsigned x : {1U, 1U, 2U, 2U}) v.d.RC(x);
    v.B({1});
    v.colore(1);
    for (int i = 0; i < 3; ++i) v.H(hPunta, 0);
    v.d.RC(0);
    v.BD({0});
}

}   // namespace

std::string VariabiliDwg(const StesuraDwg& s) {
    Variabili v{s, {}, {}, {}};
    const OdDbDatabase& db = s.db;
    const bool vuoto = !(db.header.extMin.x <= db.header.extMax.x);
    v.BD({412148564080.0, 1, 1, 1});   // ratios of units
    if (!v.da(FormatoDwg::r2007)) {
        v.T("m");
        for (int i = 0; i < 3; ++i) v.T("");
    }
    v.d.BL(24);
    v.d.BL(0);
    if (v.solo14()) v.BS({0});
    if (!v.da(FormatoDwg::r2004)) v.H(hPunta, 0);   // current viewport header
    modi(v);
    misure(v);
    spazio(v, {1e20, 1e20, 1e20}, {-1e20, -1e20, -1e20}, {}, {12, 9, 0});   // paper
    spazio(v, vuoto ? OdGePoint3d{1e20, 1e20, 1e20} : db.header.extMin,
           vuoto ? OdGePoint3d{-1e20, -1e20, -1e20} : db.header.extMax, db.header.limMin, db.header.limMax);
    quote(v);
    tabelle(v);
    for (const OdDbHandle h : {db.blocks[db.paperSpace].handle, db.blocks[db.modelSpace].handle, s.linea("ByLayer"),
                               s.linea("ByBlock"), s.linea("Continuous")})
        v.H(hPunta, h);
    scena(v);
    v.BS({0, 0, 0, 0});
    if (v.da(FormatoDwg::r2007)) {
        const int quanti = v.da(FormatoDwg::r2010) ? 14 : 12;
        for (int i = 0; i < quanti; ++i) v.T(i == 0 ? "m" : i == 4 ? "acad" : "");
        chiudiTesti(v.d, v.testi, true);
    }
    const std::size_t primaDeiRiferimenti = v.d.quantiBit();
    v.d.bitDi(v.riferimenti);
    v.d.allinea();
    std::string b;
    if (v.da(FormatoDwg::r2007)) aggiungiRL(b, lunghezzaPropria + static_cast<std::uint32_t>(primaDeiRiferimenti));
    b.append(v.d.dati().begin(), v.d.dati().end());
    return b;
}

namespace {

struct ClasseDwg {
    const char *cpp, *dxf;
};
constexpr ClasseDwg classi[]{{"AcDbDictionaryWithDefault", "ACDBDICTIONARYWDFLT"},
                             {"AcDbPlaceHolder", "ACDBPLACEHOLDER"},
                             {"AcDbLayout", "LAYOUT"}};
constexpr int primaClasse = 500;

// One class; its texts go to `testi`, which may be the same stream.
void classe(BitDwg& d, BitDwg& testi, FormatoDwg formato, const ClasseDwg& c, int numero) {
    constexpr const char* programma = "ObjectDBX Classes";
    constexpr std::int32_t diOggetto = 0x1F3;
    d.BS(numero);
    d.BS(0);
    for (const std::string_view t : {std::string_view(programma), std::string_view(c.cpp), std::string_view(c.dxf)}) {
        testi.BS(static_cast<std::int32_t>(t.size()));
        testi.byte(formato >= FormatoDwg::r2007 ? TestoDwg16(t) : std::string(t));
    }
    d.B(false);
    d.BS(diOggetto);
    if (formato < FormatoDwg::r2004) return;
    d.BL(1);    // how many there are
    d.BL(22);   // format and release that they came with
    d.BL(42);
    d.BL(0);
    d.BL(0);
}

}   // namespace

std::string ClassiDwg(const StesuraDwg& s) {
    BitDwg d, testi;
    const bool conTesti = s.formato >= FormatoDwg::r2007;
    if (s.formato >= FormatoDwg::r2004) {
        d.BS(primaClasse + static_cast<int>(std::size(classi)) - 1);   // the highest number
        d.RC(0);
        d.RC(0);
        d.B(true);
    }
    int numero = primaClasse;
    for (const ClasseDwg& c : classi) classe(d, conTesti ? testi : d, s.formato, c, numero++);
    std::string b;
    if (conTesti) {
        chiudiTesti(d, testi, true);
        aggiungiRL(b, lunghezzaPropria + static_cast<std::uint32_t>(d.quantiBit()));
    }
    // A byte is begun in any case: readers take the check from behind the byte that they stand in.
    if (!conTesti) d.B(false);
    d.allinea();
    b.append(d.dati().begin(), d.dati().end());
    return b;
}

}   // namespace tessaro
