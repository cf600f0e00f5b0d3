#include "chart/GestionPlan.h"

#include "base/Valeur.h"
#include "posting/Filtre.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"

#include <cmath>

namespace {

bool EstCompteFixe(const QString& n) {
    return n == QLatin1String("400") || n == QLatin1String("410") || n == QLatin1String("699") ||
           n == QLatin1String("799");
}

} // namespace

QString ValeurTexte(const QString& numero) {
    const double v = ValeurNumerique(numero);
    if (std::isfinite(v) && std::abs(v) < 1e15 && v == std::floor(v))
        return QString::number(static_cast<long long>(v));
    return QString::number(v, 'g', 15);
}

bool NumeroDansLesPlages(const QString& n) {
    if (n.size() < 2) return false;
    if (n < QLatin1String("100") || n > QLatin1String("799")) return false;
    return !(n >= QLatin1String("699") && n <= QLatin1String("69999999"));
}

bool CompteSupprimable(const QString& cle, const QString& numero) {
    const QString n = numero.trimmed();
    if (EstCompteFixe(n)) return false;
    if (n > QLatin1String("59999999")) {
        table::Budget b;
        if (LireBudget(cle, n, b) && (!b.Budget.estNul() || !b.BudFut.estNul())) {
            ui::Boite(QStringLiteral(
                          "Vous ne pouvez supprimer ce compte car vous avez enregistré un budget."),
                      QStringLiteral("Maroval"), ui::Icone::Exclamation);
            return false;
        }
    }
    table::Compte c;
    if (!LireCompte(cle, n, c)) return false;
    return c.Sde.estNul() && c.CumD.estNul() && c.CumC.estNul();
}

void SupprimerCompte(const QString& cle, const QString& numero) {
    const std::string n = numero.trimmed().toStdString();
    SQLite::Statement compte(Base(), "DELETE FROM Compte WHERE CleCpt=? AND NumCpt=?");
    compte.bind(1, cle.toStdString());
    compte.bind(2, n);
    compte.exec();
    if (numero.trimmed() >= QLatin1String("600")) {
        SQLite::Statement budget(Base(), "DELETE FROM Budget WHERE CleCpt=? AND NumBud=?");
        budget.bind(1, cle.toStdString());
        budget.bind(2, n);
        budget.exec();
    }
}

void AssurerComptesFixes(const QString& cle) {
    const QString vide;
    AssurerCompte(cle, QStringLiteral("400"), QStringLiteral("Fournisseurs collectif"), vide, vide);
    AssurerCompte(cle, QStringLiteral("410"), QStringLiteral("Clients collectif"), vide, vide);
    AssurerCompte(cle, QStringLiteral("699"), QStringLiteral("Compte pour résultat positif"), vide,
                  vide);
    AssurerCompte(cle, QStringLiteral("799"), QStringLiteral("Compte pour résultat négatif"), vide,
                  vide);
}
