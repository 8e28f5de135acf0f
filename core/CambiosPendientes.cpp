#include "CambiosPendientes.h"

#include "ModBase.h"

RespuestaCambios preguntarCambios(const ModBase& mb, UserInteraction& ui,
                                  const std::function<void()>& guardar)
{
    RespuestaCambios r;
    if (!mb.Modificado)
        return r;
    r.preguntado = true;
    r.respuesta = ui.question(mb.Textos(1315));
    if (r.respuesta == Answer::Yes && guardar)
        guardar();
    return r;
}
