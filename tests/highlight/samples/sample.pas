// A list of shapes.
unit Shapes;

{$mode objfpc}{$H+}

interface

uses
  SysUtils, Classes;

const
  Limit = $FF;
  Mask = %1010;
  NewLine = #13#10;

type
  { What a shape is. }
  TKind = (skCircle, skSquare);
  PShape = ^TShape;
  TShape = class(TObject)
  private
    FName: string;
    FSize: Double;
    function GetArea: Double; virtual; abstract;
  public
    constructor Create(const AName: string; ASize: Double = 1.5e2);
    destructor Destroy; override;
    property Area: Double read GetArea;
  end;

procedure Show(const S: TShape);

implementation

constructor TShape.Create(const AName: string; ASize: Double);
begin
  inherited Create;
  FName := AName;
  FSize := ASize;
end;

procedure Show(const S: TShape);
var
  I: Integer;
begin
  if not Assigned(S) then
    Exit;
  for I := 0 to Limit div 2 do
    case I mod 3 of
      0: WriteLn(Format('%d: %s', [I, S.FName]));
    else
      Continue;
    end;
  try
    S.Free;
  except
    on E: Exception do
      raise; (* again *)
  end;
end;

end.
