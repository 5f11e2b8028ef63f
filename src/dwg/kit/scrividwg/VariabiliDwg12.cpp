// The header's variables of R12, at fixed places one behind the other. What the drawing does not decide has the value of
// a new drawing; the names behind the lines are those that the format's users know.
#include "dwg/kit/scrividwg/FileDwg12.h"

namespace tessaro {

namespace {

constexpr OdGePoint3d asseX{1, 0, 0}, asseY{0, 1, 0}, asseZ{0, 0, 1};
constexpr double lontano = 1e20;   // an empty extent

struct Variabili12 {
    const OdDbDatabase& db;
    const TavoleDwg12& tavole;
    ByteDwg12 b;

    void RC(std::initializer_list<unsigned> v) {
        for (const unsigned x : v) b.RC(x);
    }
    void RS(std::initializer_list<int> v) {
        for (const int x : v) b.RS(x);
    }
    void RD(std::initializer_list<double> v) {
        for (const double x : v) b.RD(x);
    }
    void P(std::initializer_list<OdGePoint3d> v) {
        for (const OdGePoint3d& p : v) b.RD3(p);
    }
    void momento(const OdTimeStamp& t) {
        b.RL(static_cast<std::uint32_t>(t.giorno));
        b.RL(static_cast<std::uint32_t>(t.millisecondi));
    }
};

void disegno(Variabili12& v) {
    const OdDbHeader& h = v.db.header;
    const bool vuoto = !(h.extMin.x <= h.extMax.x);
    v.P({{}});   // INSBASE
    v.RS({0});   // PLINEGEN
    v.P({vuoto ? OdGePoint3d{lontano, lontano, lontano} : h.extMin,
         vuoto ? OdGePoint3d{-lontano, -lontano, -lontano} : h.extMax});
    v.RD({h.limMin.x, h.limMin.y, h.limMax.x, h.limMax.y});
    const OdGePoint3d centro{(h.limMin.x + h.limMax.x) / 2, (h.limMin.y + h.limMax.y) / 2, 0};
    v.P({centro});                              // VIEWCTR
    v.RD({h.limMax.y - h.limMin.y});            // VIEWSIZE
    v.RS({0});                                  // SNAPMODE
    v.RD({1, 1, 0, 0, 0});                      // SNAPUNIT SNAPBASE SNAPANG
    v.RS({0, 0, 0});                            // SNAPSTYLE SNAPISOPAIR GRIDMODE
    v.RD({0, 0});                               // GRIDUNIT
    v.RS({0, 1, 1, 0, 2});                      // ORTHOMODE REGENMODE FILLMODE QTEXTMODE DRAGMODE
    v.RD({h.ltscale, 0.2, 0.05});               // LTSCALE TEXTSIZE TRACEWID
    v.RS({static_cast<int>(h.clayer.n) - 1});   // CLAYER
    v.b.RL(15);                                 // the current colour as older releases told it
    v.b.RL(0);
    v.RS({0, 0, 0, 0});                                         // unknown, PSLTSCALE TREEDEPTH, unknown
    v.RD({1.5});                                                // shape of the screen
    v.RS({2, 4, 0});                                            // LUNITS LUPREC AXISMODE
    v.RD({0, 0, 0.1, 0});                                       // AXISUNIT SKETCHINC FILLETRAD
    v.RS({0, 0, static_cast<int>(h.textStyle.n) - 1, 0, 1});    // AUNITS AUPREC TEXTSTYLE OSMODE ATTMODE
    v.b.testo("acad", 15);                                      // MENU
    v.RD({1, 0.18, 0.0625, 0.38, 0.18, 0, 0, 0.18, 0.09, 0});   // DIMSCALE ASZ EXO DLI EXE TP TM TXT CEN TSZ
    v.RC({0, 0, 1, 1, 0, 0, 0, 0});                             // DIMTOL LIM TIH TOH SE1 SE2 TAD LIMCHECK
    v.b.testo("", 46);                                          // the menu's longer name
    v.RD({0, 0});                                               // ELEVATION THICKNESS
    v.P({asseZ, {}, {}, {}, {}, {}, {}});                       // VIEWDIR and what older releases kept of it
    v.RS({0, 1});                                               // flat, BLIPMODE
}

void modi(Variabili12& v) {
    const OdDbHeader& h = v.db.header;
    v.RC({0});                             // DIMZIN
    v.RD({0, 0});                          // DIMRND DIMDLE
    v.b.testo("", 33);                     // DIMBLK
    v.RS({100, 0, 256, lineaDaPiano12});   // circles' smoothness, COORDS CECOLOR CELTYPE
    v.momento(h.tdCreate);
    v.momento(h.tdUpdate);
    v.momento({});                 // TDINDWG
    v.momento({});                 // TDUSRTIMER
    v.RS({1, 1, 0});               // USRTIMER FASTZOOM SKPOLY
    v.RS({0, 0, 0, 0, 0, 0, 0});   // a date that nothing reads
    v.RD({0});                     // ANGBASE
    v.RS({0, 0});                  // ANGDIR PDMODE
    v.RD({0, 0});                  // PDSIZE PLINEWID
    v.RS({0, 0, 0, 0, 0});         // USERI
    v.RD({0, 0, 0, 0, 0});         // USERR
    v.RC({0, 2, 1, 1});            // DIMALT ALTD ASO SHO
    v.b.testo("", 16);             // DIMPOST
    v.b.testo("", 16);             // DIMAPOST
    v.RD({25.4, 1});               // DIMALTF LFAC
    v.RS({8, 0, 1, 0});            // SPLINESEGS SPLFRAME ATTREQ ATTDIA
    v.RD({0, 0});                  // CHAMFERA CHAMFERB
    v.RS({1});                     // MIRRTEXT
}

void spazi(Variabili12& v) {
    constexpr int paginaCodici = 30;   // the format's number of code page 1252
    rigaTavola12(v.b, v.tavole[ucs12]);
    v.RS({paginaCodici});
    v.P({{}, asseX, asseY, {}});   // UCSORG UCSXDIR UCSYDIR TARGET
    v.RD({50, 0, 0, 0});           // LENSLENGTH VIEWTWIST FRONTZ BACKZ
    v.RS({0});                     // VIEWMODE
    v.RC({0});                     // DIMTOFL
    v.b.testo("", 33);             // DIMBLK1
    v.b.testo("", 33);             // DIMBLK2
    v.RC({0, 0, 0});               // DIMSAH TIX SOXD
    v.RD({0});                     // DIMTVP
    v.b.testo("", 33);
    v.RS({0});   // HANDLING: entities have no handles
    v.b.RL(0);   // HANDSEED
    v.b.RL(0);
    v.RS({6, 6, 6, 6, 6});   // SURFU SURFV SURFTYPE SURFTAB1 SURFTAB2
    rigaTavola12(v.b, v.tavole[finestre12]);
    v.RS({0, 6, 1, -1});   // FLATLAND SPLINETYPE UCSICON UCSNAME
    rigaTavola12(v.b, v.tavole[programmi12]);
    v.RS({1, 5, 1});   // WORLDVIEW, two unknown
    rigaTavola12(v.b, v.tavole[quote12]);
    v.RS({-1, 0});   // unknown
    v.RC({0});
    v.RS({0, 0, 0, 3, 70, 0, 0});      // DIMCLRD E T SHADEDGE SHADEDIF, unknown, UNITMODE
    v.RD({412148564080.0, 1, 1, 1});   // ratios of units
    v.b.testo("m", 32);
    for (int i = 0; i < 3; ++i) v.b.testo("", 32);
    v.RD({1});                                                            // DIMTFAC
    v.P({{}, asseX, asseY});                                              // PUCSORG PUCSXDIR PUCSYDIR
    v.RS({-1, 1, 0, 0});                                                  // PUCSNAME TILEMODE PLIMCHECK, unknown
    v.P({{lontano, lontano, lontano}, {-lontano, -lontano, -lontano}});   // PEXTMIN PEXTMAX
    v.RD({0, 0, 12, 9});                                                  // PLIMMIN PLIMMAX
    v.P({{}});                                                            // PINSBASE
    rigaTavola12(v.b, v.tavole[vx12]);
    v.RS({16});        // MAXACTVP
    v.RD({0.09, 0});   // DIMGAP PELEVATION
    v.RS({0});         // VISRETAIN
}

}   // namespace

std::string VariabiliDwg12(const OdDbDatabase& db, const TavoleDwg12& tavole) {
    Variabili12 v{db, tavole, {}};
    disegno(v);
    modi(v);
    spazi(v);
    return std::move(v.b.s);
}

}   // namespace tessaro
