#include "session/SaisieMontant.h"

#include "base/Texte.h"
#include "session/Session.h"

bool MontantLisible(const QString& texte) {
    QString t = SansEspaces(texte);
    const QString symbole = SansEspaces(session().SymboleMonnaie);
    if (!symbole.isEmpty() && t.endsWith(symbole)) t.chop(symbole.size());
    int chiffres = 0;
    bool separateur = false;
    for (qsizetype i = 0; i < t.size(); ++i) {
        const QChar c = t.at(i);
        if (EstChiffre(c))
            ++chiffres;
        else if ((c == QLatin1Char('-') || c == QLatin1Char('+')) && i == 0)
            continue;
        else if ((c == QLatin1Char(',') || c == QLatin1Char('.')) && !separateur)
            separateur = true;
        else
            return false;
    }
    return chiffres > 0 && chiffres <= 15;
}
