// The tool's globals with their start values.
#include "model/Strumento.h"

#include "model/TabellaStato.h"

namespace tessaro {

constinit std::int32_t Modalita = mSelezione;
constinit std::int32_t operazCorrente = opSegmento;
constinit std::int32_t Azione = sFermo;
constinit std::int16_t tabButton = bNessuno;
constinit std::uint8_t CurvePerPunti = 0;
constinit std::uint8_t ContinuaPoligono = 0;
constinit std::uint8_t IntroDigitale = 0;
constinit double XDigit = 0;
constinit double YDigit = 0;
constinit double ZDigit = 0;
constinit std::uint8_t CalcWindow = 0;
constinit double Xini = 0;
constinit double Yini = 0;
constinit double Zinizio = 0;
constinit double Xfine = 0;
constinit double Yfine = 0;
constinit double lastX = 0;
constinit double lastY = 0;
constinit double xprecedente = 0;
constinit double yprecedente = 0;
constinit double angoloprecedente = 0;
constinit double distprecedente = 0;
constinit double XSpost1 = -10000;
constinit double YSpost1 = -10000;
constinit double XSpost2 = -10000;
constinit double YSpost2 = -10000;
constinit double XDeltaSpost = 0;
constinit double YDeltaSpost = 0;
constinit double ZDeltaSpost = 0;
constinit std::uint8_t Sposta2ndClick = 0;

namespace {

const VoceStato righe[] = {
    voce<Modalita>("Modalita"),
    voce<operazCorrente>("operazCorrente"),
    voce<Azione>("Azione"),
    voce<tabButton>("tabButton"),
    voce<CurvePerPunti>("CurvePerPunti"),
    voce<ContinuaPoligono>("ContinuaPoligono"),
    voce<IntroDigitale>("IntroDigitale"),
    voce<XDigit>("XDigit"),
    voce<YDigit>("YDigit"),
    voce<ZDigit>("ZDigit"),
    voce<CalcWindow>("CalcWindow"),
    voce<Xini>("Xini"),
    voce<Yini>("Yini"),
    voce<Zinizio>("Zinizio"),
    voce<Xfine>("Xfine"),
    voce<Yfine>("Yfine"),
    voce<lastX>("lastX"),
    voce<lastY>("lastY"),
    voce<xprecedente>("xprecedente"),
    voce<yprecedente>("yprecedente"),
    voce<angoloprecedente>("angoloprecedente"),
    voce<distprecedente>("distprecedente"),
    voce<XSpost1>("XSpost1"),
    voce<YSpost1>("YSpost1"),
    voce<XSpost2>("XSpost2"),
    voce<YSpost2>("YSpost2"),
    voce<XDeltaSpost>("XDeltaSpost"),
    voce<YDeltaSpost>("YDeltaSpost"),
    voce<ZDeltaSpost>("ZDeltaSpost"),
    voce<Sposta2ndClick>("Sposta2ndClick"),
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
