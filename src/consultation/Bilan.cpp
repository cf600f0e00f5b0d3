#include "consultation/Bilan.h"

#include "consultation/DetailCp.h"
#include "consultation/DonneesComptes.h"
#include "consultation/Export.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/BoiteAide.h"
#include "ui/Grille.h"
#include "ui/Personalisation.h"
#include "ui_Bilan.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTimer>

namespace ecran {

DeuxListes::DeuxListes(QWidget* parent, Genre genre_)
    : ui::EcranModal(parent), genre(std::move(genre_)) {
    FixerContexteAide(14);
}

DeuxListes::~DeuxListes() = default;

ui::Grille* DeuxListes::G(const char* nom) const {
    return findChild<ui::Grille*>(QString::fromLatin1(nom));
}

QLabel* DeuxListes::L(const char* nom) const {
    return findChild<QLabel*>(QString::fromLatin1(nom));
}

void DeuxListes::Demarrer() {
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);
    auto* cadre = findChild<QWidget*>(QStringLiteral("CadreAide"));
    auto* aide = new ui::BoiteAide(cadre);
    aide->setObjectName(QStringLiteral("BoiteAide1"));
    cadre->layout()->addWidget(aide);
    for (ui::Grille* g : {G("Tree1"), G("Tree2")}) {
        g->FixerColonnes(
            {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
        g->FixerLargeurColonne(0, 80);
        g->FixerLargeurColonne(1, 210);
        g->FixerLargeurColonne(2, 120);
        // Le double clic se lit sur la surface de la grille, même vide.
        g->viewport()->installEventFilter(this);
    }
    connect(findChild<QPushButton*>(QStringLiteral("Command2")), &QPushButton::clicked, this,
            &DeuxListes::Command2_Click);
    connect(findChild<QPushButton*>(QStringLiteral("Command4")), &QPushButton::clicked, this,
            &DeuxListes::Command4_Click);
    connect(findChild<QPushButton*>(QStringLiteral("CBExportExcel")), &QPushButton::clicked, this,
            &DeuxListes::CBExportExcel_Click);
    Form_Load();
}

Montant DeuxListes::Remplir(ui::Grille* grille, comptes::Rubrique rubrique) {
    const QString& image = session().FormatMontant;
    Montant total;
    grille->Vider();
    grille->FixerAlignementColonne(2, Qt::AlignRight | Qt::AlignVCenter);
    grille->FixerTriMontants(2);
    grille->DebutRemplissage();
    for (const comptes::Compte& c : comptes::DeLaRubrique(rubrique)) {
        const QString affiche = FormaterMontant(c.solde, image);
        // Le bilan totalise ce qui est à l'écran, le compte de résultat les soldes exacts.
        total += genre.sommeAffichee ? MontantDepuisTexte(affiche) : c.solde;
        grille->AjouterLigne({c.numero, c.libelle, affiche});
    }
    grille->FinRemplissage();
    return total;
}

void DeuxListes::Form_Load() {
    if (auto* aide = findChild<ui::BoiteAide*>(QStringLiteral("BoiteAide1")))
        aide->FixerMessageAide(QStringLiteral(
            "Double-cliquez sur un compte pour le consulter.|Vous pouvez changer la taille de "
            "cet écran."));
    ui::RestaurerPersonalisations(this, {G("Tree1"), G("Tree2")});
    const QString& image = session().FormatMontant;
    const Montant gauche = Remplir(G("Tree1"), genre.gauche);
    L("Label3")->setText(FormaterMontant(gauche, image));
    const Montant droite = Remplir(G("Tree2"), genre.droite);
    L("Label4")->setText(FormaterMontant(droite, image));
    L("Label10")->setText(FormaterMontant(
        genre.resultatGaucheMoinsDroite ? gauche - droite : droite - gauche, image));
    const QString legende = LegendeFinale(gauche, droite);
    if (!legende.isEmpty()) L("Label9")->setText(legende);
}

void DeuxListes::Consulter(ui::Grille* grille) {
    const int ligne = grille->LigneCourante();
    session().CompteChoisi = (ligne >= 0 ? grille->Texte(ligne, 0) : QString()).left(8).trimmed();
    DetailCp detail(this);
    detail.exec();
}

void DeuxListes::Tree1_DblClick() {
    Consulter(G("Tree1"));
}

void DeuxListes::Tree2_DblClick() {
    Consulter(G("Tree2"));
}

bool DeuxListes::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::MouseButtonDblClick) {
        if (objet == G("Tree1")->viewport()) {
            // La ligne sous le pointeur devient courante avant la consultation.
            QTimer::singleShot(0, this, &DeuxListes::Tree1_DblClick);
        } else if (objet == G("Tree2")->viewport()) {
            QTimer::singleShot(0, this, &DeuxListes::Tree2_DblClick);
        }
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

void DeuxListes::CBExportExcel_Click() {
    const QString separateur = SeparateurListe();
    const QString fichier = ChoisirFichierExport(genre.nomFichier);
    if (fichier.isEmpty() || !AccepterEcrasement(fichier)) return;
    FichierCsv csv(fichier, separateur);
    const auto liste = [&](const QString& titre, ui::Grille* g, const char* legende,
                           const char* total) {
        csv.EcrireTitres({titre});
        csv.EcrireTitres(
            {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
        for (int i = 0; i < g->NombreLignes(); ++i)
            csv.EcrireLigne(
                {g->Texte(i, 0).trimmed(), g->Texte(i, 1).trimmed(), g->Texte(i, 2).trimmed()},
                false);
        csv.EcrireLigne({QString(), L(legende)->text().trimmed(), L(total)->text().trimmed()},
                        false);
    };
    liste(genre.titreGauche, G("Tree1"), "Label5", "Label3");
    liste(genre.titreDroite, G("Tree2"), "Label6", "Label4");
    csv.EcrireLigne({QString(), QString(), QString(), QString()}, false);
    csv.EcrireLigne({QString(), L("Label9")->text().trimmed(), L("Label10")->text().trimmed()},
                    false);
    csv.Fermer();
    TerminerExport(fichier, genre.phraseExport.arg(fichier),
                   QStringLiteral("Voulez-vous ouvrir ce fichier maintenant ?"));
}

void DeuxListes::Command2_Click() {
    Retour();
}

void DeuxListes::Command4_Click() {
    // Retour à l'écran principal : cet écran et celui des consultations.
    QuitterNiveaux(2);
}

void DeuxListes::SauverPersonalisations() {
    ui::SauverPersonalisations(this, {G("Tree1"), G("Tree2")});
}

void DeuxListes::done(int resultat) {
    if (!personalisationsSauvees) {
        personalisationsSauvees = true;
        SauverPersonalisations();
    }
    EcranModal::done(resultat);
}

Bilan::Bilan(QWidget* parent)
    : DeuxListes(parent,
                 {comptes::Rubrique::Actif, comptes::Rubrique::Passif, true, true,
                  QStringLiteral("ACTIF"), QStringLiteral("PASSIF"), QStringLiteral("Bilan.csv"),
                  QStringLiteral("Le Bilan a été exporté sous \"%1\"")}),
      ui(std::make_unique<Ui::Bilan>()) {
    ui->setupUi(this);
    Demarrer();
}

Bilan::~Bilan() = default;

QString Bilan::LegendeFinale(Montant gauche, Montant droite) const {
    table::Constante k;
    LireConstante(CleCourante(), k);
    if (k.DateSaisie.trimmed() == k.DateFin.trimmed() && gauche == droite)
        return QStringLiteral("Votre résultat a été affecté au bilan.");
    return QString();
}

} // namespace ecran
