#include "backup/Historique.h"

#include "backup/ErreurSauvegarde.h"
#include "backup/ZipBiblio.h"
#include "session/Session.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace {

// Espaces de noms du format XML des recordsets ADO.
const QString NsSchema = QStringLiteral("uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882");
const QString NsType = QStringLiteral("uuid:C2F41010-65B3-11d1-A29F-00AA00C14882");
const QString NsRowset = QStringLiteral("urn:schemas-microsoft-com:rowset");
const QString NsLigne = QStringLiteral("#RowsetSchema");

struct Champ {
    QString nom;
    bool entier; // adBigInt, obligatoire ; sinon adVarChar, nul permis
    int taille;
};

const QList<Champ>& Champs() {
    static const QList<Champ> champs = {{QStringLiteral("HistoID"), true, 8},
                                        {QStringLiteral("Date"), false, 14},
                                        {QStringLiteral("NbEcritures"), true, 8},
                                        {QStringLiteral("FichierSauvegarde"), false, 1024},
                                        {QStringLiteral("TailleFic"), true, 8}};
    return champs;
}

[[noreturn]] void Format(const QString& detail) {
    throw ErreurSauvegarde(
        ErreurFormatHistorique,
        QStringLiteral("history.xml n'est pas un historique de sauvegardes lisible : ") + detail);
}

void EcrireSchema(QXmlStreamWriter& w) {
    w.writeStartElement(NsSchema, QStringLiteral("Schema"));
    w.writeAttribute(QStringLiteral("id"), QStringLiteral("RowsetSchema"));
    w.writeStartElement(NsSchema, QStringLiteral("ElementType"));
    w.writeAttribute(QStringLiteral("name"), QStringLiteral("row"));
    w.writeAttribute(QStringLiteral("content"), QStringLiteral("eltOnly"));
    w.writeAttribute(NsRowset, QStringLiteral("updatable"), QStringLiteral("true"));
    int numero = 0;
    for (const Champ& c : Champs()) {
        w.writeStartElement(NsSchema, QStringLiteral("AttributeType"));
        w.writeAttribute(QStringLiteral("name"), c.nom);
        w.writeAttribute(NsRowset, QStringLiteral("number"), QString::number(++numero));
        if (!c.entier)
            w.writeAttribute(NsRowset, QStringLiteral("nullable"), QStringLiteral("true"));
        w.writeAttribute(NsRowset, QStringLiteral("write"), QStringLiteral("true"));
        w.writeEmptyElement(NsSchema, QStringLiteral("datatype"));
        if (c.entier) {
            w.writeAttribute(NsType, QStringLiteral("type"), QStringLiteral("i8"));
            w.writeAttribute(NsType, QStringLiteral("maxLength"), QString::number(c.taille));
            w.writeAttribute(NsRowset, QStringLiteral("precision"), QStringLiteral("19"));
            w.writeAttribute(NsRowset, QStringLiteral("fixedlength"), QStringLiteral("true"));
            w.writeAttribute(NsRowset, QStringLiteral("maybenull"), QStringLiteral("false"));
        } else {
            w.writeAttribute(NsType, QStringLiteral("type"), QStringLiteral("string"));
            w.writeAttribute(NsRowset, QStringLiteral("dbtype"), QStringLiteral("str"));
            w.writeAttribute(NsType, QStringLiteral("maxLength"), QString::number(c.taille));
        }
        w.writeEndElement();
    }
    w.writeEmptyElement(NsSchema, QStringLiteral("extends"));
    w.writeAttribute(QStringLiteral("type"), QStringLiteral("rs:rowbase"));
    w.writeEndElement(); // ElementType
    w.writeEndElement(); // Schema
}

qint64 Entier(const QString& texte, const QString& champ, qint64 ligne) {
    bool ok = false;
    const qint64 valeur = texte.toLongLong(&ok);
    if (!ok)
        Format(QStringLiteral("valeur « %1 » du champ %2 invalide à la ligne %3.")
                   .arg(texte, champ)
                   .arg(ligne));
    return valeur;
}

// Une ligne z:row ; noms : nom d'attribut (en minuscules) -> nom du champ.
LigneHistorique LireLigne(const QXmlStreamAttributes& attributs,
                          const QHash<QString, QString>& noms, qint64 ligne) {
    QHash<QString, QString> valeurs; // champ en minuscules -> valeur
    for (const QXmlStreamAttribute& a : attributs) {
        if (!a.namespaceUri().isEmpty()) continue;
        const QString attribut = a.name().toString().toLower();
        valeurs.insert(noms.value(attribut, attribut).toLower(), a.value().toString());
    }
    const auto entier = [&](const QString& champ) {
        const QString cle = champ.toLower();
        if (!valeurs.contains(cle))
            Format(QStringLiteral("champ %1 absent à la ligne %2.").arg(champ).arg(ligne));
        return Entier(valeurs.value(cle), champ, ligne);
    };
    const auto texte = [&](const QString& champ) -> std::optional<QString> {
        const QString cle = champ.toLower();
        if (!valeurs.contains(cle)) return std::nullopt; // valeur nulle : attribut absent
        return valeurs.value(cle);
    };
    LigneHistorique l;
    l.HistoID = entier(QStringLiteral("HistoID"));
    l.Date = texte(QStringLiteral("Date"));
    l.NbEcritures = entier(QStringLiteral("NbEcritures"));
    l.FichierSauvegarde = texte(QStringLiteral("FichierSauvegarde"));
    l.TailleFic = entier(QStringLiteral("TailleFic"));
    return l;
}

} // namespace

QString CheminHistorique() {
    return QDir(session().DossierDonnees).filePath(QStringLiteral("history.xml"));
}

QByteArray HistoriqueEnXml(const QList<LigneHistorique>& lignes) {
    QByteArray sortie;
    QXmlStreamWriter w(&sortie);
    w.setAutoFormatting(true);
    w.writeStartElement(QStringLiteral("xml"));
    w.writeNamespace(NsSchema, QStringLiteral("s"));
    w.writeNamespace(NsType, QStringLiteral("dt"));
    w.writeNamespace(NsRowset, QStringLiteral("rs"));
    w.writeNamespace(NsLigne, QStringLiteral("z"));
    EcrireSchema(w);
    w.writeStartElement(NsRowset, QStringLiteral("data"));
    for (const LigneHistorique& l : lignes) {
        w.writeEmptyElement(NsLigne, QStringLiteral("row"));
        w.writeAttribute(QStringLiteral("HistoID"), QString::number(l.HistoID));
        if (l.Date) w.writeAttribute(QStringLiteral("Date"), *l.Date);
        w.writeAttribute(QStringLiteral("NbEcritures"), QString::number(l.NbEcritures));
        if (l.FichierSauvegarde)
            w.writeAttribute(QStringLiteral("FichierSauvegarde"), *l.FichierSauvegarde);
        w.writeAttribute(QStringLiteral("TailleFic"), QString::number(l.TailleFic));
    }
    w.writeEndElement(); // rs:data
    w.writeEndElement(); // xml
    sortie.append('\n');
    return sortie;
}

QList<LigneHistorique> HistoriqueDepuisXml(const QByteArray& contenu) {
    QXmlStreamReader r(contenu);
    QHash<QString, QString> noms; // nom d'attribut -> nom réel du champ (rs:name)
    QStringList declares;
    QList<LigneHistorique> lignes;
    bool racine = false;
    int dansData = 0;
    int ignore = 0; // lignes effacées ou anciennes valeurs d'une ligne modifiée
    while (!r.atEnd()) {
        const QXmlStreamReader::TokenType t = r.readNext();
        if (t == QXmlStreamReader::EndElement) {
            if (ignore > 0)
                --ignore;
            else if (r.namespaceUri() == NsRowset && r.name() == QStringLiteral("data"))
                --dansData;
            continue;
        }
        if (t != QXmlStreamReader::StartElement) continue;
        if (!racine) {
            racine = true;
            if (r.name() != QStringLiteral("xml") || !r.namespaceUri().isEmpty())
                Format(QStringLiteral("l'élément racine n'est pas <xml>."));
            continue;
        }
        if (ignore > 0) {
            ++ignore;
            continue;
        }
        const QStringView ns = r.namespaceUri();
        const QStringView nom = r.name();
        if (ns == NsRowset &&
            (nom == QStringLiteral("delete") || nom == QStringLiteral("original"))) {
            ignore = 1;
        } else if (ns == NsSchema && nom == QStringLiteral("AttributeType")) {
            const QString attribut = r.attributes().value(QStringLiteral("name")).toString();
            QString reel = r.attributes().value(NsRowset, QStringLiteral("name")).toString();
            if (reel.isEmpty()) reel = attribut;
            noms.insert(attribut.toLower(), reel);
            declares << reel.toLower();
        } else if (ns == NsRowset && nom == QStringLiteral("data")) {
            ++dansData;
        } else if (ns == NsLigne && nom == QStringLiteral("row") && dansData > 0) {
            lignes << LireLigne(r.attributes(), noms, r.lineNumber());
        }
    }
    if (r.hasError())
        Format(QStringLiteral("%1 (ligne %2, colonne %3).")
                   .arg(r.errorString())
                   .arg(r.lineNumber())
                   .arg(r.columnNumber()));
    if (!racine) Format(QStringLiteral("le fichier est vide."));
    for (const Champ& c : Champs())
        if (!declares.contains(c.nom.toLower()))
            Format(QStringLiteral("le champ %1 n'est pas déclaré.").arg(c.nom));
    return lignes;
}

void CreerHistoriqueVide(const QString& chemin) {
    EcrireHistorique(chemin, {});
}

QList<LigneHistorique> LireHistorique(const QString& chemin) {
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly))
        throw ErreurSauvegarde(
            ErreurAccesFichier,
            QStringLiteral("Impossible de lire %1 : %2").arg(chemin, f.errorString()));
    const QByteArray contenu = f.readAll();
    if (f.error() != QFileDevice::NoError)
        throw ErreurSauvegarde(
            ErreurAccesFichier,
            QStringLiteral("Impossible de lire %1 : %2").arg(chemin, f.errorString()));
    return HistoriqueDepuisXml(contenu);
}

void EcrireHistorique(const QString& chemin, const QList<LigneHistorique>& lignes) {
    QSaveFile f(chemin);
    const QByteArray contenu = HistoriqueEnXml(lignes);
    if (!f.open(QIODevice::WriteOnly) || f.write(contenu) != contenu.size() || !f.commit())
        throw ErreurSauvegarde(
            ErreurAccesFichier,
            QStringLiteral("Impossible d'écrire %1 : %2").arg(chemin, f.errorString()));
    SynchroniserDossier(QFileInfo(chemin).absolutePath());
}
