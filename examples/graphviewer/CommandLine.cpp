#include "CommandLine.h"

#include "Export.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>

namespace GraphViewer {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("CommandLine", text);
}

class Parser
{
public:
    Parser();
    CommandLine parse(const QStringList &arguments);

private:
    QString usageError() const;
    CommandLine refusal(const QString &reason) const;
    CommandLine request() const;

    QCommandLineParser m_parser;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
    QCommandLineOption m_export {QStringLiteral("export"),
                                 translated("Write the graph to <out>, a .png or .pdf file, without opening a window."),
                                 QStringLiteral("out")};
    QCommandLineOption m_router {QStringLiteral("router"),
                                 translated("Lay the edges by <router>: straight, bendpoint (the default, as Graphviz "
                                            "drew them) or manhattan."),
                                 QStringLiteral("router"), routerName(RouterKind::Bendpoint)};
    QCommandLineOption m_timeout {QStringLiteral("timeout"),
                                  translated("Give up an export after <seconds>; 0 (the default) waits for ever."),
                                  QStringLiteral("seconds"), QStringLiteral("0")};
};

Parser::Parser()
    : m_help(m_parser.addHelpOption())
    , m_version(m_parser.addVersionOption())
{
    m_parser.setApplicationDescription(
        translated("Shows a graph in the Graphviz language. Needs the program \"dot\"."));
    m_parser.addOption(m_export);
    m_parser.addOption(m_router);
    m_parser.addOption(m_timeout);
    m_parser.addPositionalArgument(QStringLiteral("file"), translated("The graph to show (.dot, .gv)."),
                                   QStringLiteral("[file]"));
}

// Empty when nothing is wrong with the parsed arguments.
QString Parser::usageError() const
{
    const QStringList files = m_parser.positionalArguments();
    if (files.size() > 1)
        return translated("More than one file was given.");
    bool validTimeout = false;
    if (m_parser.value(m_timeout).toInt(&validTimeout) < 0 || !validTimeout)
        return translated("The timeout must be a number of seconds.");
    if (!routerOfName(m_parser.value(m_router)))
        return translated("The router must be straight, bendpoint or manhattan.");
    if (!m_parser.isSet(m_export))
        return {};
    if (files.isEmpty())
        return translated("There is no file to export.");
    if (!isExportName(m_parser.value(m_export)))
        return translated("The file to write must end in .png or .pdf.");
    return {};
}

CommandLine Parser::refusal(const QString &reason) const
{
    CommandLine refused;
    refused.action = CommandLine::Action::Refuse;
    refused.text = translated("%1\nTry \"graphviewer --help\".").arg(reason);
    return refused;
}

CommandLine Parser::request() const
{
    CommandLine request;
    if (m_parser.isSet(m_help) || m_parser.isSet(m_version)) {
        request.action = CommandLine::Action::PrintText;
        request.text = m_parser.isSet(m_help)
            ? m_parser.helpText().trimmed()
            : QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion();
        return request;
    }
    request.action = m_parser.isSet(m_export) ? CommandLine::Action::Export : CommandLine::Action::ShowWindow;
    request.file = m_parser.positionalArguments().value(0);
    request.exportFile = m_parser.value(m_export);
    request.router = routerOfName(m_parser.value(m_router)).value_or(request.router);
    request.timeout = m_parser.value(m_timeout).toInt();
    return request;
}

CommandLine Parser::parse(const QStringList &arguments)
{
    if (!m_parser.parse(arguments))
        return refusal(m_parser.errorText());
    const bool asksForText = m_parser.isSet(m_help) || m_parser.isSet(m_version);
    const QString error = asksForText ? QString() : usageError();
    return error.isEmpty() ? request() : refusal(error);
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    return Parser().parse(arguments);
}

bool runsWithoutWindow(const QStringList &arguments)
{
    static const QStringList options {QStringLiteral("-h"), QStringLiteral("--help"), QStringLiteral("--help-all"),
                                      QStringLiteral("-v"), QStringLiteral("--version")};
    return std::any_of(arguments.begin(), arguments.end(), [](const QString &argument) {
        return options.contains(argument) || argument.startsWith(QLatin1String("--export"))
            || argument.startsWith(QLatin1String("-export"));
    });
}

} // namespace GraphViewer
