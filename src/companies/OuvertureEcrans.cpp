#include "companies/OuvertureEcrans.h"

#include "ui/Boite.h"
#include "ui/EcranModal.h"

#include <QHash>
#include <QStringList>
#include <QWidget>
#include <type_traits>

// Chaque écran livré par son module est pris ici tel quel : en-tête "<module>/<Nom>.h",
// classe ecran::<Nom> construite avec son parent.
#if __has_include("chart/Plan2.h")
#include "chart/Plan2.h"
#endif
#if __has_include("entry/Choisais.h")
#include "entry/Choisais.h"
#endif
#if __has_include("entry/SaisDC.h")
#include "entry/SaisDC.h"
#endif
#if __has_include("entry/Saislog.h")
#include "entry/Saislog.h"
#endif
#if __has_include("entry/Annul.h")
#include "entry/Annul.h"
#endif
#if __has_include("entry/ModifLib.h")
#include "entry/ModifLib.h"
#endif
#if __has_include("consultation/Consult.h")
#include "consultation/Consult.h"
#endif
#if __has_include("consultation/Journal.h")
#include "consultation/Journal.h"
#endif
#if __has_include("consultation/Balance.h")
#include "consultation/Balance.h"
#endif
#if __has_include("consultation/Resultat.h")
#include "consultation/Resultat.h"
#endif
#if __has_include("consultation/ConsCpt.h")
#include "consultation/ConsCpt.h"
#endif
#if __has_include("consultation/BilGraph.h")
#include "consultation/BilGraph.h"
#endif
#if __has_include("reports/Editions.h")
#include "reports/Editions.h"
#endif
#if __has_include("treasury/Rappr.h")
#include "treasury/Rappr.h"
#endif
#if __has_include("yearend/Cloture.h")
#include "yearend/Cloture.h"
#endif
#if __has_include("backup/Backup.h")
#include "backup/Backup.h"
#endif
#if __has_include("backup/Sauve.h")
#include "backup/Sauve.h"
#endif
#if __has_include("backup/Restaure.h")
#include "backup/Restaure.h"
#endif
#if __has_include("analytic/Analy0.h")
#include "analytic/Analy0.h"
#endif
#if __has_include("budget/Budget00.h")
#include "budget/Budget00.h"
#endif
#if __has_include("budget/budget03.h")
#include "budget/budget03.h"
#elif __has_include("budget/Budget03.h")
#include "budget/Budget03.h"
#endif
#if __has_include("budget/Budget04.h")
#include "budget/Budget04.h"
#endif
#if __has_include("treasury/Tresor00.h")
#include "treasury/Tresor00.h"
#endif
#if __has_include("treasury/Tresor01.h")
#include "treasury/Tresor01.h"
#endif
#if __has_include("treasury/Tresor02.h")
#include "treasury/Tresor02.h"
#endif
#if __has_include("treasury/Tresor03.h")
#include "treasury/Tresor03.h"
#endif
#if __has_include("treasury/Tresor04.h")
#include "treasury/Tresor04.h"
#endif
#if __has_include("treasury/Tresor05.h")
#include "treasury/Tresor05.h"
#endif
#if __has_include("fiscal/Fiscalite.h")
#include "fiscal/Fiscalite.h"
#endif

// Déclarés ici pour que l'absence d'un écran ne soit pas une erreur de compilation : une
// classe restée incomplète est un écran pas encore livré.
namespace ecran {
class Plan2;
class Choisais;
class SaisDC;
class Saislog;
class Annul;
class ModifLib;
class Consult;
class Journal;
class Balance;
class Resultat;
class ConsCpt;
class BilGraph;
class Editions;
class Rappr;
class Cloture;
class Backup;
class Sauve;
class Restaure;
class Analy0;
class Budget00;
class budget03;
class Budget03;
class Budget04;
class Tresor00;
class Tresor01;
class Tresor02;
class Tresor03;
class Tresor04;
class Tresor05;
class Fiscalite;
} // namespace ecran

namespace ecran {

namespace {

template <class T>
concept Complet = requires {
    sizeof(T);
};

// Un écran ouvert depuis l'écran principal commence une chaîne : "&Quitter" s'arrête à lui.
template <class T> void DebutDeChaine(T& e) {
    if constexpr (std::is_base_of_v<ui::EcranModal, T>) e.FixerDebutChaine(true);
}

template <class T> Ouvreur OuvreurDe() {
    if constexpr (!Complet<T>) {
        return {};
    } else if constexpr (std::is_constructible_v<T, QWidget*>) {
        return [](QWidget* parent) {
            T e(parent);
            DebutDeChaine(e);
            e.exec();
        };
    } else if constexpr (std::is_default_constructible_v<T>) {
        return [](QWidget*) {
            T e;
            DebutDeChaine(e);
            e.exec();
        };
    } else {
        return {};
    }
}

template <class A, class B> Ouvreur PremierOuvreur() {
    Ouvreur o = OuvreurDe<A>();
    return o ? o : OuvreurDe<B>();
}

QHash<QString, Ouvreur> Livres() {
    return {
        {QStringLiteral("Plan2"), OuvreurDe<Plan2>()},
        {QStringLiteral("Choisais"), OuvreurDe<Choisais>()},
        {QStringLiteral("SaisDC"), OuvreurDe<SaisDC>()},
        {QStringLiteral("Saislog"), OuvreurDe<Saislog>()},
        {QStringLiteral("Annul"), OuvreurDe<Annul>()},
        {QStringLiteral("ModifLib"), OuvreurDe<ModifLib>()},
        {QStringLiteral("Consult"), OuvreurDe<Consult>()},
        {QStringLiteral("Journal"), OuvreurDe<Journal>()},
        {QStringLiteral("Balance"), OuvreurDe<Balance>()},
        {QStringLiteral("Resultat"), OuvreurDe<Resultat>()},
        {QStringLiteral("ConsCpt"), OuvreurDe<ConsCpt>()},
        {QStringLiteral("BilGraph"), OuvreurDe<BilGraph>()},
        {QStringLiteral("Editions"), OuvreurDe<Editions>()},
        {QStringLiteral("Rappr"), OuvreurDe<Rappr>()},
        {QStringLiteral("Cloture"), OuvreurDe<Cloture>()},
        {QStringLiteral("Backup"), OuvreurDe<Backup>()},
        {QStringLiteral("Sauve"), OuvreurDe<Sauve>()},
        {QStringLiteral("Restaure"), OuvreurDe<Restaure>()},
        {QStringLiteral("Analy0"), OuvreurDe<Analy0>()},
        {QStringLiteral("Budget00"), OuvreurDe<Budget00>()},
        {QStringLiteral("budget03"), PremierOuvreur<budget03, Budget03>()},
        {QStringLiteral("Budget04"), OuvreurDe<Budget04>()},
        {QStringLiteral("Tresor00"), OuvreurDe<Tresor00>()},
        {QStringLiteral("Tresor01"), OuvreurDe<Tresor01>()},
        {QStringLiteral("Tresor02"), OuvreurDe<Tresor02>()},
        {QStringLiteral("Tresor03"), OuvreurDe<Tresor03>()},
        {QStringLiteral("Tresor04"), OuvreurDe<Tresor04>()},
        {QStringLiteral("Tresor05"), OuvreurDe<Tresor05>()},
        {QStringLiteral("Fiscalite"), OuvreurDe<Fiscalite>()},
    };
}

QHash<QString, Ouvreur>& Ouvreurs() {
    static QHash<QString, Ouvreur> o = Livres();
    return o;
}

} // namespace

QString TexteEcranAbsent() {
    return QStringLiteral("Cette fonction n'est pas encore disponible dans cette version de "
                          "Maroval.");
}

bool EcranDisponible(const QString& nom) {
    return static_cast<bool>(Ouvreurs().value(nom));
}

bool OuvrirEcran(const QString& nom, QWidget* parent) {
    const Ouvreur o = Ouvreurs().value(nom);
    if (!o) {
        ui::Boite(TexteEcranAbsent(), QStringLiteral("Maroval"), ui::Icone::Information);
        return false;
    }
    o(parent);
    return true;
}

QStringList NomsEcransDemandes() {
    QStringList noms = Livres().keys();
    noms.sort();
    return noms;
}

void FixerOuvreur(const QString& nom, Ouvreur ouvreur) {
    Ouvreurs().insert(nom, std::move(ouvreur));
}

void OublierOuvreurs() {
    Ouvreurs() = Livres();
}

} // namespace ecran
