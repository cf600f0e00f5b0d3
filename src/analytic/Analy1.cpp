#include "analytic/Analy1.h"

#include "analytic/Analy1b.h"
#include "analytic/Analy1c.h"
#include "analytic/DonneesAnalytique.h"
#include "base/Texte.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "ui/Sablier.h"

#include "ui_Analy1.h"

#include <QTimer>

namespace ecran {

namespace {

constexpr int ColonneSection = 4, ColonneNomSection = 5;

QString Deux(int n) {
    return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
}

void Attention(const QString& texte) {
    ui::Boite(texte, QStringLiteral("Attention"), ui::Icone::Exclamation);
}

// Le nom montré pour la section d'une ligne.
QString NomDeSection(const QString& cle, double numEcr, int section) {
    if (section == analytique::AVentiler) {
        table::Ventilation v;
        if (LireVentilation(cle, numEcr, v)) return QStringLiteral("Ecriture ventilée");
    }
    QString nom;
    analytique::SectionExiste(cle, section, &nom);
    return nom;
}

const QColor Affectee = QColor(20, 70, 160);

} // namespace

Analy1::Analy1(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::Analy1>()) {
    FixerContexteAide(18);
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
    ui->Tree1->FixerAlignementColonne(2, Qt::AlignRight | Qt::AlignVCenter);
    ui->Tree1->FixerTriMontants(2);
    ui->Tree2->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Libellé de la section")});
    ui->Tree3->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Date Saisie"),
                              QStringLiteral("Libellé"), QStringLiteral("Montant"),
                              QStringLiteral("Numéro"), QStringLiteral("Libellé Section")});
    const int largeurs1[] = {80, 230, 110};
    for (int c = 0; c < 3; ++c)
        ui->Tree1->FixerLargeurColonne(c, largeurs1[c]);
    ui->Tree2->FixerLargeurColonne(0, 60);
    ui->Tree2->FixerLargeurColonne(1, 220);
    const int largeurs3[] = {70, 90, 300, 120, 70, 220};
    for (int c = 0; c < 6; ++c) {
        ui->Tree3->FixerLargeurColonne(c, largeurs3[c]);
        ui->Tree3->FixerColonneTriable(c, false);
    }
    ui->Tree3->FixerAlignementColonne(3, Qt::AlignRight | Qt::AlignVCenter);
    ui->Tree3->FixerAlignementColonne(ColonneSection, Qt::AlignCenter);

    ui->Tree3->FixerValidation([this](int ligne, int, QString& texte) {
        const QString cle = CleCourante();
        bool nombre = false;
        const int section = texte.trimmed().toInt(&nombre);
        if (!nombre || section < 0 || section > 99) {
            Attention(QStringLiteral("Votre saisie n'est pas correcte, recommencez"));
            return ui::Grille::Validation::GarderOuvert;
        }
        if (!analytique::SectionExiste(cle, section)) {
            Attention(QStringLiteral("Cette section analytique n'existe pas, recommencez"));
            return ui::Grille::Validation::GarderOuvert;
        }
        const double numEcr = ui->Tree3->DonneeLigne(ligne).toDouble();
        analytique::AffecterLigne(cle, numEcr, section);
        texte = Deux(section);
        ui->Tree3->FixerTexte(ligne, ColonneNomSection, NomDeSection(cle, numEcr, section));
        ui->Tree3->FixerCouleurLigne(ligne, section >= 1 && section <= 98 ? Affectee : QColor());
        // La ligne affectée quitte la liste des lignes à gérer : la liste se recharge une fois
        // l'édition finie.
        if (ui->BREcrAGer->isChecked() || ui->BRAventiler->isChecked())
            QTimer::singleShot(0, this, [this] { MajTreeEcritures(); });
        GererBoutonVentil();
        return ui::Grille::Validation::Accepter;
    });

    const auto option = [this](QRadioButton* b, auto action) {
        connect(b, &QRadioButton::toggled, this, [action](bool coche) {
            if (coche) action();
        });
    };
    const auto classe = [this] {
        MajTree1();
        MajTreeEcritures();
    };
    option(ui->BRCharges, classe);
    option(ui->BRProduits, classe);
    option(ui->BRCptAger, [this] { MajTree1(); });
    option(ui->BRTsCptes, [this] { MajTree1(); });
    option(ui->BREcrAGer, [this] { MajTreeEcritures(); });
    option(ui->BRAventiler, [this] { MajTreeEcritures(); });
    option(ui->BRTtesEcr, [this] { MajTreeEcritures(); });
    connect(ui->Tree1, &ui::Grille::ligneCliquee, this, [this] { MajTreeEcritures(); });
    connect(ui->Tree3, &ui::Grille::ligneCliquee, this,
            [this](int ligne) { ui->Tree3->EditerCellule(ligne, ColonneSection); });
    connect(ui->Tree3, &ui::Grille::touche, this, [this](int touche) {
        const int ligne = ui->Tree3->LigneCourante();
        if ((touche == Qt::Key_Return || touche == Qt::Key_Enter) && ligne >= 0)
            ui->Tree3->EditerCellule(ligne, ColonneSection);
    });
    connect(ui->Tree3, &ui::Grille::ligneCouranteChangee, this, [this] { GererBoutonVentil(); });
    connect(ui->BCreerSect, &QPushButton::clicked, this, &Analy1::BCreerSect_Click);
    connect(ui->BModifSect, &QPushButton::clicked, this, &Analy1::BModifSect_Click);
    connect(ui->BSupprSect, &QPushButton::clicked, this, &Analy1::BSupprSect_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &Analy1::Command3_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &Analy1::Command6_Click);
    connect(ui->Command7, &QPushButton::clicked, this, &Analy1::Command7_Click);
    connect(ui->Command8, &QPushButton::clicked, this, &Analy1::Command8_Click);
    Form_Load();
}

Analy1::~Analy1() = default;

void Analy1::Form_Load() {
    analytique::AssurerSectionsReservees(CleCourante());
    MajTree2();
    MajTree1();
}

void Analy1::MajTree2() {
    ui->Tree2->Vider();
    const std::vector<analytique::Section> sections = analytique::Sections(CleCourante(), true);
    for (const analytique::Section& s : sections)
        ui->Tree2->AjouterLigne({Deux(s.numero), s.nom}, s.numero);
    if (sections.size() < 4)
        ui::Boite(analytique::TexteSectionsManquantes(), QStringLiteral("Maroval"),
                  ui::Icone::Information);
}

void Analy1::MajTree1() {
    ui->Tree1->Vider();
    const QString cle = CleCourante();
    for (const analytique::Compte& c : analytique::Comptes(cle, ui->BRCharges->isChecked())) {
        if (ui->BRCptAger->isChecked() && !analytique::CompteAGerer(cle, c.numero)) continue;
        ui->Tree1->AjouterLigne({c.numero, c.libelle, AfficheMontant(c.solde)}, c.numero);
    }
    ui->Label6->clear();
    ui->Tree3->Vider();
    GererBoutonVentil();
}

QString Analy1::CompteChoisi() const {
    const int ligne = ui->Tree1->LigneChoisie();
    return ligne < 0 ? QString() : ui->Tree1->DonneeLigne(ligne).toString();
}

void Analy1::MajTreeEcritures() {
    ui->Tree3->Vider();
    const QString numero = CompteChoisi();
    if (numero.isEmpty()) {
        GererBoutonVentil();
        ui::Boite(QStringLiteral("Aucun compte n'est sélectionné."));
        return;
    }
    const int ligneCompte = ui->Tree1->LigneChoisie();
    ui->Label6->setText(numero + QLatin1Char(' ') + ui->Tree1->Texte(ligneCompte, 1));
    const analytique::Filtre filtre = ui->BREcrAGer->isChecked()     ? analytique::Filtre::AGerer
                                      : ui->BRAventiler->isChecked() ? analytique::Filtre::AVentiler
                                                                     : analytique::Filtre::Toutes;
    const QString cle = CleCourante();
    for (const analytique::Ligne& l : analytique::Lignes(cle, numero, filtre)) {
        const int ligne = ui->Tree3->AjouterLigne(
            {QString::number(static_cast<qint64>(l.numero)), DateVersEcran(l.dateEcr), l.libelle,
             AfficheMontant(l.montant), Deux(l.section), NomDeSection(cle, l.numero, l.section)},
            l.numero);
        if (l.section >= 1 && l.section <= 98) ui->Tree3->FixerCouleurLigne(ligne, Affectee);
    }
    if (ui->Tree3->NombreLignes() > 0) ui->Tree3->FixerLigneCourante(0);
    GererBoutonVentil();
}

void Analy1::GererBoutonVentil() {
    const int ligne = ui->Tree3->LigneCourante();
    const bool actif = ui->BRAventiler->isChecked() && ui->Tree3->NombreLignes() > 0 && ligne >= 0;
    ui->Command6->setEnabled(actif);
    if (actif)
        ui->Command6->setText(QStringLiteral("Ventilation de l'écriture ") +
                              ui->Tree3->Texte(ligne, 0));
}

bool Analy1::SectionChoisie(int& numero, QString& nom) {
    const int ligne = ui->Tree2->LigneChoisie();
    if (ligne < 0) {
        Attention(QStringLiteral("Sélectionnez d'abord une section analytique."));
        return false;
    }
    numero = ui->Tree2->DonneeLigne(ligne).toInt();
    nom = ui->Tree2->Texte(ligne, 1);
    return true;
}

void Analy1::BCreerSect_Click() {
    Analy1b dialogue(this, true);
    dialogue.exec();
    if (dialogue.NumSectionChoisie.isEmpty() || dialogue.NomSectionChoisie.isEmpty()) return;
    const int numero = dialogue.NumSectionChoisie.toInt();
    analytique::CreerSection(CleCourante(), numero, dialogue.NomSectionChoisie);
    MajTree2();
    ui->Tree2->FixerLigneCourante(ui->Tree2->ChercherDonnee(numero));
}

void Analy1::BModifSect_Click() {
    int numero = 0;
    QString nom;
    if (!SectionChoisie(numero, nom)) return;
    if (numero == 0 || numero == 99) {
        ui::Boite(QStringLiteral("Vous ne pouvez pas modifier les sections 00 et 99."));
        return;
    }
    Analy1b dialogue(this, false, numero, nom);
    dialogue.exec();
    if (dialogue.NomSectionChoisie.isEmpty()) return;
    analytique::RenommerSection(CleCourante(), numero, dialogue.NomSectionChoisie);
    MajTree2();
    if (!CompteChoisi().isEmpty()) MajTreeEcritures();
}

void Analy1::BSupprSect_Click() {
    int numero = 0;
    QString nom;
    if (!SectionChoisie(numero, nom)) return;
    if (numero == 0 || numero == 99) {
        ui::Boite(QStringLiteral("Vous ne pouvez pas supprimer les sections 00 et 99."));
        return;
    }
    const QString cle = CleCourante();
    const QString designation = QStringLiteral("\"%1 %2\"").arg(Deux(numero), nom);
    if (analytique::LignesDeLaSection(cle, numero) > 0 ||
        analytique::VentilationsDeLaSection(cle, numero) > 0) {
        ui::Boite(QStringLiteral("La section %1 est présente dans l'affectation \nanalytique des "
                                 "écritures.\n\nPour supprimer cette section, vous devez d'abord "
                                 "modifier\nles écritures qui ont été affectées à cette section.")
                      .arg(designation),
                  QStringLiteral("Avertissement"), ui::Icone::Exclamation);
        return;
    }
    if (ui::Boite(QStringLiteral("Voulez-vous vraiment supprimer la section %1 ?").arg(designation),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;
    analytique::SupprimerSection(cle, numero);
    MajTree2();
}

void Analy1::Command3_Click() {
    Retour();
}

void Analy1::Command6_Click() {
    const int ligne = ui->Tree3->LigneCourante();
    if (ligne < 0) return;
    QStringList rappel;
    for (int c = 0; c < 4; ++c)
        rappel << ui->Tree3->Texte(ligne, c).trimmed();
    Analy1c ventilation(this, ui->Tree3->DonneeLigne(ligne).toDouble(),
                        rappel.join(QStringLiteral("    ")));
    ventilation.exec();
    MajTreeEcritures();
}

void Analy1::AnnulerAffectations(const QString& erEcr) {
    if (ui::Boite(QStringLiteral("Ce choix annule TOUTES les affectations analytiques.\n"
                                 "Avant de lancer ce traitement vous pouvez faire une\n"
                                 "sauvegarde de votre comptabilité ce qui vous permettra, grâce\n"
                                 "à une restauration de revenir au modèle analytique déjà "
                                 "réalisé.\nVoulez-vous continuer ?"),
                  QStringLiteral("Attention"), ui::Icone::Question, ui::Boutons::OuiNon,
                  2) != ui::Reponse::Oui)
        return;
    {
        ui::Sablier sablier;
        analytique::AnnulerAffectations(CleCourante(), erEcr);
    }
    MajTreeEcritures();
}

void Analy1::Command7_Click() {
    AnnulerAffectations(QStringLiteral("E2"));
}

void Analy1::Command8_Click() {
    AnnulerAffectations(QStringLiteral("R2"));
}

} // namespace ecran
