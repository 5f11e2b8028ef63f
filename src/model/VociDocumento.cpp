// The chain of the document's rows, and the rows of the model.
#include "model/VociDocumento.h"

#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "model/Registrazione.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "model/Vincoli.h"

namespace tessaro {

constinit VociDocumento* VociDocumento::prima = nullptr;

VociDocumento::VociDocumento(std::span<const VoceDocumento> r) : righe(r), prossima(prima) { prima = this; }

namespace {

using V = VoceDocumento;
// Field by field where a structure has bytes between its fields: those change by themselves.
const VoceDocumento voci[] = {
    VoceDi("VisioneGraf", V::documento, VisioneGraf),
    VoceDi("coloriPresenti", V::documento, coloriPresenti),
    VoceDi("arrColori", V::documento, arrColori),
    VoceDi("UnitaMCorrente", V::documento, UnitaMCorrente),
    VoceDi("decimiUnita", V::documento, decimiUnita),
    VoceDi("Scaladis", V::documento, Scaladis),
    VoceDi("Xfoglio", V::documento, Xfoglio),
    VoceDi("yfoglio", V::documento, yfoglio),
    VoceDi("XFDecimi", V::documento, XFDecimi),
    VoceDi("YFDecimi", V::documento, YFDecimi),
    VoceDi("xAttacco5", V::documento, xAttacco5),
    VoceDi("yAttacco5", V::documento, yAttacco5),
    VoceDi("OKAttacco5", V::documento, OKAttacco5),
    VoceDi("meshOrigine.nx", V::documento, meshOrigine.nx),
    VoceDi("meshOrigine.ny", V::documento, meshOrigine.ny),
    VoceDi("meshOrigine.x", V::documento, meshOrigine.x),
    VoceDi("meshOrigine.y", V::documento, meshOrigine.y),
    VoceDi("meshDestinazione.nx", V::documento, meshDestinazione.nx),
    VoceDi("meshDestinazione.ny", V::documento, meshDestinazione.ny),
    VoceDi("meshDestinazione.x", V::documento, meshDestinazione.x),
    VoceDi("meshDestinazione.y", V::documento, meshDestinazione.y),
    VoceDi("XA1", V::derivata, XA1),
    VoceDi("YA1", V::derivata, YA1),
    VoceDi("XA2", V::derivata, XA2),
    VoceDi("YA2", V::derivata, YA2),
    VoceDi("TransfCoord", V::derivata, TransfCoord),
    VoceDi("TransfInvert", V::derivata, TransfInvert),
    VoceDi("rappvid", V::derivata, rappvid),
    VoceDi("RappPunti", V::derivata, RappPunti),
    VoceDi("Azione", V::figura, Azione),
    VoceDi("ContinuaPoligono", V::figura, ContinuaPoligono),
    VoceDi("Xini", V::figura, Xini),
    VoceDi("Yini", V::figura, Yini),
    VoceDi("Zinizio", V::figura, Zinizio),
    VoceDi("IndicePolCorrente", V::elastico, IndicePolCorrente),
    VoceDi("inizioAggiunta", V::elastico, inizioAggiunta),
    VoceDi("Xfine", V::elastico, Xfine),
    VoceDi("Yfine", V::elastico, Yfine),
    VoceDi("lastX", V::elastico, lastX),
    VoceDi("lastY", V::elastico, lastY),
    VoceDi("xprecedente", V::elastico, xprecedente),
    VoceDi("yprecedente", V::elastico, yprecedente),
    VoceDi("angoloprecedente", V::elastico, angoloprecedente),
    VoceDi("distprecedente", V::elastico, distprecedente),
    VoceDi("operazCorrente", V::strumento, operazCorrente),
    VoceDi("Modalita", V::strumento, Modalita),
    VoceDi("CurvePerPunti", V::strumento, CurvePerPunti),
};
const VociDocumento tabella(voci);

}   // namespace

}   // namespace tessaro
