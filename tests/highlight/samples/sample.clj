;; A small store of accounts.
(ns bank.core
  (:require [clojure.string :as str]
            [clojure.set :refer [union]])
  (:import (java.util UUID)))

(def ^:dynamic *limit* 100.0)
(defonce accounts (atom {}))

(defrecord Account [id owner balance])

(defn open!
  "Makes an account; says \"who\" owns it."
  [owner & {:keys [balance] :or {balance 0}}]
  (let [id (str (UUID/randomUUID))
        acc (->Account id owner balance)]
    (swap! accounts assoc id acc)
    acc))

(defn- rich? [{:keys [balance]}]
  (and (some? balance) (pos? balance) (> balance *limit*)))

(defmacro unless [test & body]
  `(if (not ~test) (do ~@body) nil))

(comment
  (open! "Ann" :balance 12.5))

(defmulti area :shape)
(defmethod area :circle [{r :r}] (* Math/PI r r))

(defn -main [& args]
  (doseq [n (range 3) :when (even? n)]
    (println "n =" n \newline))
  (->> (vals @accounts)
       (filter rich?)
       (map #(update % :balance inc))
       (reduce + 0))
  (try (throw (ex-info "bad" {:code 0x1F}))
       (catch Exception e (prn (ex-data e)))
       (finally #_(ignored) true))
  (re-find #"\d+" "abc 123"))
