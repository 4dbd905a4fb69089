' Orders and their totals.
Option Explicit On
Imports System.Collections.Generic

#Region "Types"
Public Enum State
    Open = 1
    Paid = &H2
End Enum
#End Region

<Serializable>
Public Class Order
    Implements IComparable(Of Order)

    Private ReadOnly _lines As New List(Of Decimal)
    Public Property Customer As String = "none"
    Public Event Changed(sender As Object, e As EventArgs)

    Public Sub Add(ByVal price As Decimal, Optional count As Integer = 1)
        If price < 0 OrElse count = 0 Then
            Throw New ArgumentException("A price like ""this"" is not one")
        ElseIf price > 1.5E+3 Then
            MsgBox("Dear!", vbOKOnly)
        End If
        For i As Integer = 1 To count
            _lines.Add(price)
        Next
        RaiseEvent Changed(Me, EventArgs.Empty)
    End Sub

    Public Function Total() As Decimal
        Dim q = From p In _lines Where p > 0D _
                Order By p Select p
        Dim due As Date = #12/31/2025#
        Return q.Sum() ' of all lines
    End Function

    Public Function CompareTo(other As Order) As Integer Implements IComparable(Of Order).CompareTo
        Return If(other Is Nothing, 1, Math.Sign(Total() - other.Total()))
    End Function

#If False Then
    Public Sub Later()
    End Sub
#End If
End Class
