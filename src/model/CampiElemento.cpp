// The fields by type.
#include "model/CampiElemento.h"

namespace tessaro {

f16* ColoreDi(elemento& e) {
    switch (e.tipo) {
    case tSegmento: return &e.segm.colore;
    case tMarker: return &e.mark.colore;
    case tPoligono: return &e.poli.colore;
    case tTesto: return &e.test.colore;
    case tCerchio: return &e.cerc.colore;
    case tArco: return &e.arco.colore;
    default: return nullptr;
    }
}

}   // namespace tessaro
