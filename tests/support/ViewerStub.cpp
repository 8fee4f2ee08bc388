#include "support/ViewerStub.h"

bool ViewportStub::setContent(Vantrel::Pictel::Figure *content)
{
    m_content = content;
    return true;
}
