#include "entry/ControlesSaisie.h"

#include "base/Texte.h"
#include "base/Valeur.h"
#include "consultation/DetailCp.h"
#include "entry/DonneesSaisie.h"
#include "session/Session.h"
#include "ui/Boite.h"
#include "ui/ChampDate.h"
#include "ui/Grille.h"
#include "ui/Sablier.h"

#include <QDate>
#include <QLineEdit>

namespace {

const QString kTitre = QStringLiteral("Maroval");

} // namespace

bool EcheanceDouteuse(const QString& echeance) {
    const QString saisie = DateVersBase(session().DateSaisieCourante);
    const QString limite = QDate::fromString(saisie, QStringLiteral("yyyyMMdd"))
                               .addMonths(3)
                               .toString(QStringLiteral("yyyyMMdd"));
    const QString e = DateVersBase(echeance);
    return e < saisie || e > limite;
}

bool ConfirmerEcheance(const QString& echeance) {
    if (!EcheanceDouteuse(echeance)) return true;
    return ui::Boite(QStringLiteral("Etes-vous certain de votre date d'échéance ?"),
                     QStringLiteral("Confirmation"), ui::Icone::Question,
                     ui::Boutons::OuiNon) == ui::Reponse::Oui;
}

bool ControlerChampDate(QLineEdit* champ, bool videPermis) {
    const QString texte = ui::TexteDate(champ);
    if ((videPermis && texte == ui::DateVide()) || DateValide(texte)) return true;
    ui::Boite(QStringLiteral("La date a été mal saisie."), kTitre, ui::Icone::Exclamation);
    // Après la boîte : le champ reprend la main une fois la sortie achevée.
    QMetaObject::invokeMethod(
        champ, [champ] { champ->setFocus(); }, Qt::QueuedConnection);
    return false;
}

bool ControlerChampLibelle(QLineEdit* libelle) {
    if (!libelle->text().trimmed().isEmpty()) return true;
    ui::Boite(QStringLiteral("Le libellé est OBLIGATOIRE"), kTitre, ui::Icone::Exclamation);
    return false;
}

bool ValiderEtPasser(QLineEdit* libelle, QLineEdit* echeance, const QString& numero) {
    if (libelle->text().trimmed().isEmpty()) {
        ui::Boite(QStringLiteral("Vous DEVEZ saisir un libellé."), kTitre, ui::Icone::Exclamation);
        return false;
    }
    const QString date = ui::TexteDate(echeance);
    if (echeance->isVisible() && date != ui::DateVide() && !ConfirmerEcheance(date)) {
        echeance->setFocus();
        return false;
    }
    ui::Sablier sablier;
    saisie::Passer(numero, libelle->text());
    return true;
}

void AfficherComptesOfferts(ui::Grille* liste, const std::vector<saisie::CompteOffert>& comptes) {
    liste->setUpdatesEnabled(false);
    liste->Vider();
    liste->FixerTriMontants(2);
    for (const saisie::CompteOffert& c : comptes)
        liste->AjouterLigne(
            {c.numero, c.libelle, FormaterMontant(c.solde, session().FormatMontant)});
    liste->setUpdatesEnabled(true);
}

QString CompteSelectionne(const ui::Grille* liste) {
    const int ligne = liste->LigneCourante();
    if (ligne < 0 || !liste->EstSelectionnee(ligne)) return {};
    return liste->Texte(ligne, 0).left(8).trimmed();
}

bool CompteDejaPresent(const QString& numero) {
    const auto ligne = saisie::LigneDuCompte(numero);
    if (!ligne) return false;
    ui::Boite(QStringLiteral("Le compte \"%1 %2\" est déjà présent.")
                  .arg(ligne->wNumCpt, ligne->wLibCpt.trimmed()),
              kTitre, ui::Icone::Exclamation);
    return true;
}

bool OuvrirDetailCompte(QWidget* parent, const QString& numero,
                        const std::function<void()>& avant) {
    if (ValeurNumerique(numero) == 0) {
        ui::Boite(QStringLiteral("Aucun compte n'est sélectionné !"), kTitre,
                  ui::Icone::Information);
        return false;
    }
    session().CompteChoisi = numero.trimmed();
    if (avant) avant();
    ecran::DetailCp detail(parent);
    detail.exec();
    return true;
}
