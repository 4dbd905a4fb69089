# A registry of words.
defmodule Words.Store do
  @moduledoc """
  Keeps words and counts, "quoted" ones too.
  """
  use GenServer
  alias Words.{Entry, Index}
  require Logger

  @limit 1_000
  @type t :: %__MODULE__{count: integer, tags: [atom]}
  defstruct count: 0, tags: [:new, :"with blank"]

  @spec start_link(keyword) :: GenServer.on_start()
  def start_link(opts \\ []) do
    GenServer.start_link(__MODULE__, opts, name: __MODULE__)
  end

  @impl true
  def handle_call({:add, word}, _from, state) when is_binary(word) do
    {:reply, :ok, %{state | count: state.count + 1}}
  end

  defp valid?(word), do: word =~ ~r/^\w+$/u and not is_nil(word)

  def totals(words) do
    words
    |> Enum.filter(&valid?/1)
    |> Enum.map(fn w -> {String.downcase(w), 0x1F} end)
    |> Enum.reduce(%{}, fn {k, n}, acc -> Map.update(acc, k, n, &(&1 + n)) end)
  end

  defmacro unless_nil(expr, do: block) do
    quote do
      if unquote(expr) != nil, do: unquote(block)
    end
  end

  def run!(path) do
    with {:ok, text} <- File.read(path),
         [first | _] <- String.split(text) do
      Logger.info("first: #{first}")
    else
      {:error, reason} -> raise ArgumentError, "no file: #{inspect(reason)}"
    end
  rescue
    e in RuntimeError -> {:error, e.message}
  end
end
