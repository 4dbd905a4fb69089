-- A bounded queue shared by tasks.
with Ada.Text_IO; use Ada.Text_IO;
with Ada.Containers.Vectors;

procedure Sample is
   pragma Assertion_Policy (Check);

   type Index is range 1 .. 16#20#;
   type Colour is (Red, Green, 'B');
   subtype Small is Integer range -10 .. 10;
   type Item is record
      Name : String (1 .. 5) := "abcde";
      Size : Float := 1.5E3;
   end record
     with Size => 96;

   package Vectors is new Ada.Containers.Vectors (Positive, Integer);

   protected type Queue (Limit : Positive) is
      entry Put (Value : in Integer);
      procedure Clear;
   private
      Data : Vectors.Vector;
   end Queue;

   protected body Queue is
      entry Put (Value : in Integer) when Natural (Data.Length) < Limit is
      begin
         Data.Append (Value);
      end Put;

      procedure Clear is null;
   end Queue;

   task Worker;
   task body Worker is
   begin
      delay 0.1;
      Put_Line ("said ""hello"" to " & Colour'Image (Red));
   end Worker;

   Q : Queue (Limit => 4);
begin
   for I in Index'First .. 3 loop
      if I mod 2 = 0 and then Small'Last > 0 then
         Q.Put (Integer (I));
      end if;
   end loop;
exception
   when Constraint_Error | Program_Error =>
      raise;
end Sample;
