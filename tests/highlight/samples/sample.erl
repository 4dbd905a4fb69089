%% A counter as a server.
-module(counter).
-behaviour(gen_server).
-export([start_link/1, next/0]).
-export([init/1, handle_call/3, handle_cast/2]).

-include_lib("kernel/include/logger.hrl").
-define(TIMEOUT, 5000).
-record(state, {count = 0 :: non_neg_integer(), name}).
-type count() :: non_neg_integer().

-spec start_link(Name :: atom()) -> {ok, pid()} | {error, term()}.
start_link(Name) ->
    gen_server:start_link({local, ?MODULE}, ?MODULE, [Name], []).

next() ->
    gen_server:call(?MODULE, next, ?TIMEOUT).

init([Name]) ->
    process_flag(trap_exit, true),
    {ok, #state{name = Name}}.

handle_call(next, _From, #state{count = N} = State) when N >= 0 ->
    {reply, N, State#state{count = N + 1}};
handle_call(_Other, _From, State) ->
    {reply, {error, "not \"known\""}, State}.

handle_cast(Msg, State) ->
    Sizes = [byte_size(B) || <<B/binary>> <- [Msg], is_binary(Msg)],
    case lists:sum(Sizes) of
        0 -> ok;
        N when N > 16#FF; N =:= 2#1010 -> io:format("~p~n", [N]);
        _ -> throw(too_short)
    end,
    try catch_all($a, 1.5e3) catch error:Reason -> Reason after ok end,
    {noreply, State}.

-if(false).
unused() -> receive stop -> ok end.
-endif.
