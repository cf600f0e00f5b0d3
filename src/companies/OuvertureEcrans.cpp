#include "companies/OuvertureEcrans.h"

#include "analytic/Analy0.h"
#include "backup/Backup.h"
#include "backup/Restaure.h"
#include "backup/Sauve.h"
#include "budget/Budget00.h"
#include "budget/Budget04.h"
#include "budget/ControleDetaille.h"
#include "chart/Plan2.h"
#include "consultation/Balance.h"
#include "consultation/BilGraph.h"
#include "consultation/ConsCpt.h"
#include "consultation/Consult.h"
#include "consultation/Journal.h"
#include "consultation/Resultat.h"
#include "entry/Annul.h"
#include "entry/Choisais.h"
#include "entry/ModifLib.h"
#include "entry/SaisDC.h"
#include "entry/Saislog.h"
#include "fec/ExportFEC.h"
#include "fiscal/Fiscalite.h"
#include "reports/Editions.h"
#include "treasury/Previsions.h"
#include "treasury/Rappr.h"
#include "treasury/Tresor00.h"
#include "treasury/Tresor01.h"
#include "treasury/Tresor02.h"
#include "treasury/Tresor05.h"
#include "ui/Boite.h"
#include "yearend/Cloture.h"

#include <QHash>
#include <QStringList>
#include <QWidget>

namespace ecran {

namespace {

// Un écran ouvert depuis l'écran principal commence une chaîne : "&Quitter" s'arrête à lui.
template <class T> void Ouvrir(QWidget* parent) {
    T e(parent);
    e.FixerDebutChaine(true);
    e.exec();
}

// Les écrans livrés, chacun par son type.
QHash<QString, Ouvreur> Livres() {
    return {
        {QStringLiteral("Plan2"), &Ouvrir<Plan2>},
        {QStringLiteral("Choisais"), &Ouvrir<Choisais>},
        {QStringLiteral("SaisDC"), &Ouvrir<SaisDC>},
        {QStringLiteral("Saislog"), &Ouvrir<Saislog>},
        {QStringLiteral("Annul"), &Ouvrir<Annul>},
        {QStringLiteral("ModifLib"), &Ouvrir<ModifLib>},
        {QStringLiteral("Consult"), &Ouvrir<Consult>},
        {QStringLiteral("Journal"), &Ouvrir<Journal>},
        {QStringLiteral("Balance"), &Ouvrir<Balance>},
        {QStringLiteral("Resultat"), &Ouvrir<Resultat>},
        {QStringLiteral("ConsCpt"), &Ouvrir<ConsCpt>},
        {QStringLiteral("BilGraph"), &Ouvrir<BilGraph>},
        {QStringLiteral("Backup"), &Ouvrir<Backup>},
        {QStringLiteral("Cloture"), &Ouvrir<Cloture>},
        {QStringLiteral("Editions"), &Ouvrir<Editions>},
        {QStringLiteral("Fiscalite"), &Ouvrir<Fiscalite>},
        {QStringLiteral("Tresor00"), &Ouvrir<Tresor00>},
        {QStringLiteral("Tresor01"), &Ouvrir<Tresor01>},
        {QStringLiteral("Tresor02"), &Ouvrir<Tresor02>},
        {QStringLiteral("Tresor03"), &Ouvrir<Tresor03>},
        {QStringLiteral("Tresor04"), &Ouvrir<Tresor04>},
        {QStringLiteral("Tresor05"), &Ouvrir<Tresor05>},
        {QStringLiteral("Rappr"), &Ouvrir<Rappr>},
        {QStringLiteral("Budget00"), &Ouvrir<Budget00>},
        {QStringLiteral("Analy0"), &Ouvrir<Analy0>},
        {QStringLiteral("Sauve"), &Ouvrir<Sauve>},
        {QStringLiteral("ExportFEC"), &Ouvrir<ExportFEC>},
        {QStringLiteral("Restaure"), &Ouvrir<Restaure>},
        {QStringLiteral("budget03"), &Ouvrir<budget03>},
        {QStringLiteral("Budget04"), &Ouvrir<Budget04>},
    };
}

// Les écrans que l'écran principal et ses voisins demandent sans qu'ils existent encore :
// leur entrée prévient l'utilisateur.
const QStringList& PasEncoreLivres() {
    static const QStringList noms;
    return noms;
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
    QStringList noms = Livres().keys() + PasEncoreLivres();
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
