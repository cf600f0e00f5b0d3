#include "analytic/DonneesAnalytique.h"

#include "store/Base.h"
#include "store/Routines.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

namespace analytique {

namespace {

Montant M(const SQLite::Statement& q, int i) {
    return Montant::depuisDixMilliemes(q.getColumn(i).getInt64());
}

QString T(const SQLite::Statement& q, int i) {
    return QString::fromUtf8(q.getColumn(i).getText());
}

int Compter(const std::string& sql, const QString& cle, int numero) {
    SQLite::Statement q(Base(), sql);
    q.bind(1, cle.toStdString());
    q.bind(2, numero);
    return q.executeStep() ? q.getColumn(0).getInt() : 0;
}

void SupprimerVentilation(const QString& cle, double numEcr) {
    SQLite::Statement q(Base(), "DELETE FROM Ventilation WHERE CleCpt = ? AND NumVentil = ?");
    q.bind(1, cle.toStdString());
    q.bind(2, numEcr);
    q.exec();
}

} // namespace

QString TexteSectionsManquantes() {
    return QStringLiteral("Pour tenir votre comptabilité analytique, vous devez créer au moins "
                          "deux sections\navec un numéro compris entre 01 et 98.\nLe numéro 00 "
                          "signifie que l'écriture n'est pas encore affectée à une section,\nLe "
                          "numéro 99 signifie que l'écriture est à ventiler dans plusieurs "
                          "sections.");
}

void AssurerSectionsReservees(const QString& cle) {
    SQLite::Statement q(Base(), "INSERT OR IGNORE INTO Section (CleCpt, NumSection, NomSection) "
                                "VALUES (?, 0, 'Non affecté'), (?, 99, 'A ventiler')");
    q.bind(1, cle.toStdString());
    q.bind(2, cle.toStdString());
    q.exec();
}

std::vector<Section> Sections(const QString& cle, bool avecReservees) {
    std::string sql = "SELECT NumSection, NomSection FROM Section WHERE CleCpt = ?";
    if (!avecReservees) sql += " AND NumSection <> 0 AND NumSection <> 99";
    sql += " ORDER BY NumSection";
    SQLite::Statement q(Base(), sql);
    q.bind(1, cle.toStdString());
    std::vector<Section> sections;
    while (q.executeStep())
        sections.push_back({q.getColumn(0).getInt(), T(q, 1).trimmed()});
    return sections;
}

bool SectionExiste(const QString& cle, int numero, QString* nom) {
    table::Section s;
    if (!LireSection(cle, numero, s)) return false;
    if (nom) *nom = s.NomSection.trimmed();
    return true;
}

void CreerSection(const QString& cle, int numero, const QString& nom) {
    table::Section s;
    s.CleCpt = cle;
    s.NumSection = numero;
    s.NomSection = nom;
    AjouterSection(s);
}

void RenommerSection(const QString& cle, int numero, const QString& nom) {
    SQLite::Statement q(Base(),
                        "UPDATE Section SET NomSection = ? WHERE CleCpt = ? AND NumSection = ?");
    q.bind(1, nom.left(40).toStdString());
    q.bind(2, cle.toStdString());
    q.bind(3, numero);
    q.exec();
}

void SupprimerSection(const QString& cle, int numero) {
    SQLite::Statement q(Base(), "DELETE FROM Section WHERE CleCpt = ? AND NumSection = ?");
    q.bind(1, cle.toStdString());
    q.bind(2, numero);
    q.exec();
}

int LignesDeLaSection(const QString& cle, int numero) {
    return Compter("SELECT count(*) FROM Ecriture WHERE CleCpt = ? AND SectionEcr = ?", cle,
                   numero);
}

int VentilationsDeLaSection(const QString& cle, int numero) {
    if (numero < 1 || numero > 98) return 0;
    // Le nom de colonne vient d'un numéro vérifié (1 à 98), jamais d'un texte tapé.
    const std::string colonne =
        QStringLiteral("Ventil%1").arg(numero, 2, 10, QLatin1Char('0')).toStdString();
    SQLite::Statement q(Base(), "SELECT count(*) FROM Ventilation WHERE CleCpt = ? AND " + colonne +
                                    " <> 0");
    q.bind(1, cle.toStdString());
    return q.executeStep() ? q.getColumn(0).getInt() : 0;
}

std::vector<Compte> Comptes(const QString& cle, bool charges) {
    SQLite::Statement q(Base(), "SELECT NumCpt, LibCpt, Solde FROM Compte WHERE CleCpt = ? AND "
                                "Solde <> 0 AND NumCpt <> '699' AND NumCpt <> '799' AND ErCpt = ? "
                                "ORDER BY NumCpt");
    q.bind(1, cle.toStdString());
    q.bind(2, charges ? "E2" : "R2");
    std::vector<Compte> comptes;
    while (q.executeStep())
        comptes.push_back({T(q, 0).trimmed(), T(q, 1).trimmed(), M(q, 2)});
    return comptes;
}

bool CompteAGerer(const QString& cle, const QString& numCpt) {
    SQLite::Statement q(Base(), "SELECT count(*) FROM Ecriture WHERE CleCpt = ? AND NumCptEcr = ? "
                                "AND SectionEcr = 0");
    q.bind(1, cle.toStdString());
    q.bind(2, numCpt.trimmed().toStdString());
    return q.executeStep() && q.getColumn(0).getInt() > 0;
}

std::vector<Ligne> Lignes(const QString& cle, const QString& numCpt, Filtre filtre) {
    std::string sql = "SELECT NumEcr, DateEcr, LibEcr, MntEcr, SectionEcr FROM Ecriture WHERE "
                      "CleCpt = ? AND NumCptEcr = ?";
    if (filtre == Filtre::AGerer) sql += " AND SectionEcr = 0";
    if (filtre == Filtre::AVentiler) sql += " AND SectionEcr = 99";
    // « +NumEcr » : la recherche passe par l'index des comptes, le tri se fait ensuite.
    sql += " ORDER BY +NumEcr";
    SQLite::Statement q(Base(), sql);
    q.bind(1, cle.toStdString());
    q.bind(2, numCpt.trimmed().toStdString());
    std::vector<Ligne> lignes;
    while (q.executeStep())
        lignes.push_back({q.getColumn(0).getDouble(), T(q, 1).trimmed(), T(q, 2).trimmed(), M(q, 3),
                          q.getColumn(4).getInt()});
    return lignes;
}

void AffecterLigne(const QString& cle, double numEcr, int section) {
    SQLite::Transaction t(Base());
    table::Ecriture e;
    table::Ventilation v;
    if (LireEcriture(cle, numEcr, e) && e.SectionEcr == AVentiler && section != AVentiler &&
        LireVentilation(cle, numEcr, v))
        SupprimerVentilation(cle, numEcr);
    SQLite::Statement q(Base(),
                        "UPDATE Ecriture SET SectionEcr = ? WHERE CleCpt = ? AND NumEcr = ?");
    q.bind(1, section);
    q.bind(2, cle.toStdString());
    q.bind(3, numEcr);
    q.exec();
    t.commit();
}

void EnregistrerVentilation(const QString& cle, double numEcr,
                            const std::array<Montant, 99>& parts) {
    SQLite::Transaction t(Base());
    table::Ventilation v;
    const bool existe = LireVentilation(cle, numEcr, v);
    v.CleCpt = cle;
    v.NumVentil = numEcr;
    for (int s = 1; s <= 98; ++s)
        v.Ventil[static_cast<std::size_t>(s)] = parts[static_cast<std::size_t>(s)];
    if (existe)
        MajVentilation(cle, numEcr, v);
    else
        AjouterVentilation(v);
    t.commit();
}

void AnnulerAffectations(const QString& cle, const QString& erEcr) {
    SQLite::Transaction t(Base());
    SQLite::Statement ventilees(Base(), "SELECT NumEcr FROM Ecriture WHERE CleCpt = ? AND ErEcr = "
                                        "? AND SectionEcr = 99");
    ventilees.bind(1, cle.toStdString());
    ventilees.bind(2, erEcr.toStdString());
    std::vector<double> numeros;
    while (ventilees.executeStep())
        numeros.push_back(ventilees.getColumn(0).getDouble());
    for (const double n : numeros)
        SupprimerVentilation(cle, n);
    SQLite::Statement q(Base(), "UPDATE Ecriture SET SectionEcr = 0 WHERE CleCpt = ? AND ErEcr = "
                                "? AND SectionEcr > 0");
    q.bind(1, cle.toStdString());
    q.bind(2, erEcr.toStdString());
    q.exec();
    t.commit();
}

std::vector<Sommes> Consulter(const QString& cle, bool charges, const QSet<int>& choisies) {
    std::vector<Sommes> resultat;
    SQLite::Statement q(Base(), "SELECT NumEcr, MntEcr, SectionEcr FROM Ecriture WHERE CleCpt = ? "
                                "AND NumCptEcr = ?");
    for (const Compte& c : Comptes(cle, charges)) {
        Sommes s{c.numero, c.libelle, {}, {}, {}, {}};
        q.bind(1, cle.toStdString());
        q.bind(2, c.numero.toStdString());
        while (q.executeStep()) {
            const Montant m = M(q, 1);
            const int section = q.getColumn(2).getInt();
            s.total += m;
            if (section == NonAffectee) {
                s.nonAffecte += m;
            } else if (section >= 1 && section <= 98) {
                (choisies.contains(section) ? s.choisies : s.autres) += m;
            } else if (section == AVentiler) {
                // Sans ventilation, la ligne ne compte que dans le total.
                table::Ventilation v;
                if (!LireVentilation(cle, q.getColumn(0).getDouble(), v)) continue;
                for (int n = 1; n <= 98; ++n)
                    (choisies.contains(n) ? s.choisies : s.autres) +=
                        v.Ventil[static_cast<std::size_t>(n)];
            }
        }
        q.reset();
        resultat.push_back(s);
    }
    return resultat;
}

} // namespace analytique
