#pragma once

#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/connections/PolylineFConnection.h>

#include <memory>

/// Opens what either connection class keeps protected.
template <typename Connection>
class OpenConnection : public Connection
{
public:
    using Connection::Connection;
    using Connection::getPainterPath;
    using Connection::getSourceDecoration;
    using Connection::getTargetDecoration;
    using Connection::isValid;
    using Connection::layout;
};

/// The integer or the floating-point connection behind one set of operations, so that one test serves both.
class AnyConnection
{
public:
    using IConnection = Vantrel::Pictel::IConnection;
    using IRotatableDecoration = Vantrel::Pictel::IRotatableDecoration;

    explicit AnyConnection(bool isReal)
    {
        if (isReal)
            take(std::make_unique<OpenConnection<Vantrel::Pictel::PolylineFConnection>>());
        else
            take(std::make_unique<OpenConnection<Vantrel::Pictel::PolylineConnection>>());
    }

    IConnection *operator->() const { return m_connection; }
    IConnection *interface() const { return m_connection; }
    Vantrel::Pictel::Shape *figure() const { return m_figure.get(); }
    void destroy() { m_figure.reset(); }

    /// Calls operation(connection) with the concrete class.
    template <typename Operation>
    auto with(Operation operation) const
    {
        using Real = OpenConnection<Vantrel::Pictel::PolylineFConnection>;
        using Whole = OpenConnection<Vantrel::Pictel::PolylineConnection>;
        if (auto *real = dynamic_cast<Real *>(m_figure.get()))
            return operation(*real);
        return operation(*dynamic_cast<Whole *>(m_figure.get()));
    }

    void setSourceDecoration(IRotatableDecoration *decoration) const
    {
        with([decoration](auto &connection) { connection.setSourceDecoration(decoration); });
    }
    void setTargetDecoration(IRotatableDecoration *decoration) const
    {
        with([decoration](auto &connection) { connection.setTargetDecoration(decoration); });
    }
    IRotatableDecoration *sourceDecoration() const
    {
        return with([](auto &connection) { return connection.getSourceDecoration(); });
    }
    IRotatableDecoration *targetDecoration() const
    {
        return with([](auto &connection) { return connection.getTargetDecoration(); });
    }
    bool isValid() const
    {
        return with([](auto &connection) { return connection.isValid(); });
    }
    void layout() const
    {
        with([](auto &connection) { connection.layout(); });
    }

private:
    template <typename Connection>
    void take(std::unique_ptr<Connection> connection)
    {
        m_connection = connection.get();
        m_figure = std::move(connection);
    }

    std::unique_ptr<Vantrel::Pictel::Shape> m_figure;
    IConnection *m_connection = nullptr;
};
