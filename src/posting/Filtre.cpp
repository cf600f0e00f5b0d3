#include "posting/Filtre.h"

#include "base/Valeur.h"
#include "posting/Totaux.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <cmath>

namespace {

// Texte d'une valeur numérique, tel qu'un nombre s'écrit sans blanc de tête.
QString TexteNombre(double v) {
    if (std::isfinite(v) && std::abs(v) < 1e15 && v == std::floor(v))
        return QString::number(static_cast<long long>(v));
    return QString::number(v, 'g', 15);
}

bool CompteExiste(const QString& cle, const QString& numero) {
    auto& q = Requete("SELECT 1 FROM Compte WHERE CleCpt=? AND NumCpt=? LIMIT 1");
    q.bind(1, cle.toStdString());
    q.bind(2, numero.toStdString());
    const bool trouve = q.executeStep();
    q.reset();
    return trouve;
}

} // namespace

QString CleFiltre(const QString& numero) {
    QString valeur = TexteNombre(ValeurNumerique(numero)).trimmed();
    if (valeur.size() >= 3) return numero;
    return valeur.leftJustified(3, QLatin1Char('0')) + QLatin1Char('0');
}

bool AssurerCompte(const QString& cle, const QString& numero, const QString& libelle,
                   const QString& erCpt, const QString& bilan) {
    if (CompteExiste(cle, numero)) return false;

    const table::Filtre f = LireFiltre(CleFiltre(numero));
    table::Compte c;
    c.CleCpt = cle;
    c.NumCpt = TexteLu(numero, 8);
    c.LibCpt = TexteLu(libelle, 40);
    c.ErCpt = erCpt.trimmed().isEmpty() ? f.ERCPT : erCpt;
    c.Bilan = bilan.trimmed().isEmpty() ? f.Bilan : bilan;
    c.Tiers = f.Tiers;
    c.Menu = EnEntier(ValeurNumerique(f.Menu));
    c.Fisc = numero.left(2);
    AjouterCompte(c);

    // Les comptes de charges et de produits ont leur budget dès leur création ; le budget
    // prend la classe de la plage, pas celle imposée par l'appelant.
    const QString n = TexteRange(numero, 0);
    if (n >= QLatin1String("600") && n != QLatin1String("699") && n != QLatin1String("799")) {
        table::Budget b;
        b.CleCpt = cle;
        b.NumBud = c.NumCpt;
        b.LibBud = c.LibCpt;
        b.ERBUD = f.ERCPT;
        AjouterBudget(b);
    }
    return true;
}

std::int16_t LireMenuCompte(const QString& numero) {
    table::Compte c;
    LireCompte(CleCourante(), numero.trimmed(), c);
    return c.Menu;
}
