-- A shift register.
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

entity shifter is
  generic (width : positive := 8);
  port (
    clk, rst : in  std_logic;
    d        : in  std_logic;
    q        : out std_logic_vector(width - 1 downto 0)
  );
end entity shifter;

architecture rtl of shifter is
  type state_t is (idle, busy);
  signal state : state_t := idle;
  signal reg   : unsigned(q'range) := (others => '0');
  constant top : std_logic_vector(7 downto 0) := x"FF";
  attribute keep : string;
  attribute keep of reg : signal is "true";
begin
  /* A block, as the language
     has known since 2008. */
  main : process (clk, rst) is
    variable count : natural range 0 to 16#1F# := 0;
  begin
    if rst = '1' then
      reg <= (others => '0');
    elsif rising_edge(clk) then
      case state is
        when idle => state <= busy after 10 ns;
        when others => null;
      end case;
      for i in reg'low to reg'high loop
        count := count + 1;
      end loop;
      reg <= shift_left(reg, 1) or resize(unsigned'("" & d), width);
      assert count < 100 report "too ""many""" severity warning;
    end if;
  end process main;

  q <= std_logic_vector(reg) when to_integer(reg) /= 3 else (others => 'Z');
end architecture rtl;
